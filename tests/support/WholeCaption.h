// SPDX-License-Identifier: MIT
// Whether a control shows its caption whole, measured with the font that it is painted with.
#pragma once

#include "platform/forms/ColumnListView.h"
#include "platform/forms/Label.h"
#include "platform/forms/ToggleControl.h"
#include "toolkit/ButtonLayout.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPainter>
#include <QTableView>
#include <algorithm>
#include <cstring>

namespace torvane {

class WholeCaption {
public:
    /// Whether a label's caption, drawn without clipping, has all its ink inside the visible part of the
    /// label.
    static bool isWhole(const Label& control) {
        constexpr int margin = 300;
        QImage paper(control.size() + QSize(2 * margin, 2 * margin), QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        painter.translate(margin, margin);
        painter.setFont(control.font());
        painter.drawText(control.textPlace(), drawnLike(control.alignment()), control.Caption());
        painter.fillRect(shownPart(control), Qt::white);
        painter.end();
        return isBlank(paper);
    }
    /// A button: text and picture side by side, both inside it.
    static bool isWhole(const chameleonButton& button) {
        const QFontMetrics metrics(button.font());
        const QSize picture = button.PictureNormal().isNull()
                                  ? QSize(0, 0)
                                  : button.PictureNormal().deviceIndependentSize().toSize();
        ButtonLayout layout;
        LayoutCaption(
            layout, {button.size(), picture, static_cast<PicturePlace>(button.PicturePosition()), false},
            [&](int width) {
                return metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, button.Caption()).size();
            });
        const QRect inside = button.rect().adjusted(1, 1, -1, -1);
        const bool textFits = inside.contains(layout.captionMoved) &&
                              layout.caption.width() >= metrics.horizontalAdvance(button.Caption().trimmed());
        return textFits && (picture.isEmpty() || inside.contains(layout.picture));
    }
    static bool isWhole(const ToggleControl& toggle) {
        const auto* button = toggle.findChild<QAbstractButton*>();
        return button->sizeHint().width() <= toggle.width();
    }
    static bool isWhole(const TVLabel& label) {
        constexpr int shadowEnd = 4; // the shadow begins this many pixels further right
        return QFontMetrics(label.font()).horizontalAdvance(label.Caption()) + shadowEnd <= label.width();
    }
    /// The heading of a column, counted from 0.
    static bool isWhole(const QHeaderView& header, int column) {
        return header.sectionSizeHint(column) <= header.sectionSize(column);
    }

private:
    /// Whether no ink is left; a trace of grey at an edge is no missing part of a letter. Most rows are the
    /// same as the one before them, and quickly compared.
    static bool isBlank(const QImage& paper) {
        const auto length = static_cast<size_t>(paper.bytesPerLine());
        for (int y = 0; y < paper.height(); ++y) {
            const uchar* row = paper.constScanLine(y);
            if (y > 0 && std::memcmp(row, row - length, length) == 0) continue;
            const auto* pixels = reinterpret_cast<const QRgb*>(row);
            const auto isPaper = [](QRgb pixel) { return qGray(pixel) > 160; };
            if (!std::all_of(pixels, pixels + paper.width(), isPaper)) return false;
        }
        return true;
    }
    /// The part of a control inside its container.
    static QRect shownPart(const QWidget& control) {
        return control.geometry().intersected(control.parentWidget()->rect()).translated(-control.pos());
    }
    /// The text flags with which a label is drawn, but without clipping.
    static int drawnLike(Qt::Alignment alignment) {
        return static_cast<int>(alignment | Qt::AlignTop) | Qt::TextWordWrap | Qt::TextDontClip;
    }
};

} // namespace torvane

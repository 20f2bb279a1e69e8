// SPDX-License-Identifier: MIT
// The list with pictures: its painting and its moves within the panel.
#include "ListView.h"
#include "Colours.h"
#include "Form.h"
#include "Pictures.h"

#include <QPainter>
#include <algorithm>

namespace torvane {

namespace {
constexpr int gameRowHeight = 33;
constexpr int iconSize = 32;
constexpr int textLeft = iconSize + 8;
constexpr OleColour backColour = 0x4A3933;
constexpr OleColour selectedTop = 0xB09A93;
constexpr OleColour selectedBottom = 0x8A6F66;
constexpr OleColour hairline = 0x5A4841;
} // namespace

ImageList::ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures)
    : Component(form, name), m_pictures(pictures.size()), m_ratio(form.devicePixelRatioF()) {
    for (const char* picture : pictures) m_names.push_back(QString::fromLatin1(picture));
}

const QPixmap& ImageList::picture(int number) {
    static const QPixmap none;
    const auto at = static_cast<size_t>(number - 1);
    if (number < 1 || at >= m_names.size()) return none;
    if (m_pictures[at].isNull()) m_pictures[at] = Pictures::load(m_names[at], m_ratio);
    return m_pictures[at];
}

ListView::ListView(QWidget& parent, const char* name, const DesignRect& rect, ImageList& icons)
    : RowList(parent, name, rect, gameRowHeight), m_icons(icons), m_height(rect.rounded().height()) {
    setFontSpec(Fonts::V8b);
}

void ListView::setHeight(int height) {
    m_height = height;
    settle();
}

void ListView::setTop(int top) { move(x(), top); }

// The list's own window reaches over all rows and over the panel that it lies in.
void ListView::settle() {
    const int reach = std::max({m_height, rowCount() * rowHeight(), parentWidget()->height() - y()});
    resize(width(), reach);
}

QRect ListView::rowRect(int row) const { return {0, row * rowHeight(), width(), rowHeight()}; }

QColor ListView::background() const { return Colours::toQColor(backColour); }

void ListView::paintRow(QPainter& painter, int row, const QRect& place) {
    const bool isCurrent = row == currentRow();
    if (isCurrent) {
        QLinearGradient light(place.topLeft(), place.bottomLeft());
        light.setColorAt(0, Colours::toQColor(selectedTop));
        light.setColorAt(1, Colours::toQColor(selectedBottom));
        painter.fillRect(place, light);
    }
    painter.fillRect(place.left(), place.bottom(), place.width(), 1, Colours::toQColor(hairline));
    const QPixmap& icon = m_icons.picture(rows()->icon(row));
    if (!icon.isNull()) painter.drawPixmap(place.left() + 2, place.top(), icon);
    const QRect textPlace = place.adjusted(textLeft, 0, -4, 0);
    const int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine;
    const QString text = fontMetrics().elidedText(rows()->text(row), Qt::ElideRight, textPlace.width());
    painter.setPen(Qt::black);
    painter.drawText(textPlace.translated(1, 1), flags, text);
    painter.setPen(Qt::white);
    painter.drawText(textPlace, flags, text);
}

void ListView::ensureVisible(int row) {
    const int frame = parentWidget()->height();
    const QRect place = rowRect(row);
    if (y() + place.top() < 0) {
        setTop(row == 0 ? qRound(designRect().top) : -place.top());
    } else if (y() + place.bottom() >= frame) {
        setTop(frame - 1 - place.bottom());
    }
}

void ListView::scrollRows(int rows) {
    const int highest = qRound(designRect().top);
    const int lowest = std::min(highest, parentWidget()->height() - rowCount() * rowHeight());
    setTop(std::clamp(y() - rows * rowHeight(), lowest, highest));
}

int ListView::rowsPerPage() const { return std::max(1, parentWidget()->height() / rowHeight()); }

} // namespace torvane

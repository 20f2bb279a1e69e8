// SPDX-License-Identifier: MIT
// Painting of rows, cell by cell.
#include "RowDelegate.h"

#include <QPainter>
#include <QPixmap>

namespace torvane {

namespace {
constexpr int iconLeft = 2;
constexpr int textMargin = 2;
constexpr int textRightMargin = 4;
constexpr int iconRoom = 8;
} // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    paintGround(*painter, option.rect, isSelected);
    QRect textPlace = option.rect.adjusted(textMargin, 0, -textRightMargin, 0);
    if (m_look.iconSize > 0 && index.column() == 0) {
        const auto icon = index.data(Qt::DecorationRole).value<QPixmap>();
        const int top = option.rect.top() + (m_look.height - m_look.iconSize) / 2;
        if (!icon.isNull()) painter->drawPixmap(option.rect.left() + iconLeft, top, icon);
        textPlace.setLeft(option.rect.left() + m_look.iconSize + iconRoom);
    }
    painter->setFont(option.font);
    // A text may have millions of characters, and all that are not cut off here get measured.
    const QString text = index.data().toString().left(std::max(textPlace.width(), 1));
    paintText(*painter, textPlace, option.fontMetrics.elidedText(text, Qt::ElideRight, textPlace.width()),
              isSelected);
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {option.rect.width(), m_look.height};
}

void RowDelegate::paintGround(QPainter& painter, const QRect& place, bool isSelected) const {
    if (isSelected) {
        QLinearGradient light(place.topLeft(), place.bottomLeft());
        light.setColorAt(0, Colours::toQColor(m_look.selectedTop));
        light.setColorAt(1, Colours::toQColor(m_look.selectedBottom));
        painter.fillRect(place, light);
    }
    if (m_look.line == m_look.back) return;
    painter.fillRect(place.left(), place.bottom(), place.width(), 1, Colours::toQColor(m_look.line));
}

void RowDelegate::paintText(QPainter& painter, const QRect& place, const QString& text,
                            bool isSelected) const {
    const int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine;
    if (m_look.hasShadow) {
        painter.setPen(Qt::black);
        painter.drawText(place.translated(1, 1), flags, text);
    }
    painter.setPen(Colours::toQColor(isSelected ? m_look.selectedFore : m_look.fore));
    painter.drawText(place, flags, text);
}

} // namespace torvane

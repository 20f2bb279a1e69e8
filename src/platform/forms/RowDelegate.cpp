// SPDX-License-Identifier: MIT
// Painting of rows, cell by cell.
#include "RowDelegate.h"

#include <QPainter>
#include <QPixmap>
#include <QTextLayout>
#include <algorithm>

namespace torvane {

namespace {
constexpr int iconLeft = 2;
constexpr int textMargin = 2;
constexpr int textRightMargin = 4;
constexpr int iconRoom = 8;

bool breaksLines(QChar c) {
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t') ||
           c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

QTextLine onlyLineOf(QTextLayout& layout, int width) {
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    return line;
}
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
    paintText(*painter, textPlace, index.data().toString().left(std::max(textPlace.width(), 1)), isSelected);
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

// The text is laid out once for its width, its shadow and itself, since that costs as much as drawing it.
void RowDelegate::paintText(QPainter& painter, const QRect& place, QString text, bool isSelected) const {
    if (text.isEmpty()) return;
    std::replace_if(text.begin(), text.end(), breaksLines, QLatin1Char(' '));
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(text, painter.font());
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    QTextLine line = onlyLineOf(layout, place.width());
    if (line.naturalTextWidth() > place.width()) {
        layout.setText(painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
        line = onlyLineOf(layout, place.width());
    }
    const qreal rest = place.height() - (line.ascent() + line.descent());
    const QPointF corner(place.left(), place.top() + rest / 2);
    if (m_look.hasShadow) {
        painter.setPen(Qt::black);
        layout.draw(&painter, corner + QPointF(1, 1));
    }
    painter.setPen(Colours::toQColor(isSelected ? m_look.selectedFore : m_look.fore));
    layout.draw(&painter, corner);
}

} // namespace torvane

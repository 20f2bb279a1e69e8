// SPDX-License-Identifier: MIT
// Measuring the text, and the field.
#include "WholeText.h"

#include <QFontMetrics>
#include <algorithm>

namespace torvane {

namespace {
// For labels of one line. Two lines of it have room between the neighbours of such a label.
constexpr FontSpec smallType{FontSpec::Verdana, 6.75};
constexpr int slack = 5; // pixels that the field needs besides its lines
// Characters that no label has room for: such texts need no measuring.
constexpr qsizetype neverFits = 2000;
// What the field shows of a text at most: without blanks, a text a hundred times as long takes minutes to lay
// out.
constexpr qsizetype longestShown = 10'000;

bool isOneLine(const Label& label) { return label.height() < 2 * QFontMetrics(label.font()).height(); }

QFont fontFor(const Label& label) { return isOneLine(label) ? Fonts::of(smallType) : label.font(); }

QRect placeFor(const Label& label) {
    const int twoLines = 2 * QFontMetrics(fontFor(label)).height() + slack;
    const int missing = std::max(0, twoLines - label.height());
    return label.geometry().adjusted(0, -missing / 2, 0, missing - missing / 2);
}
} // namespace

WholeText::WholeText(Label& label, Label* shadow, Control& heading)
    : QWidget(label.parentWidget()), m_label(label), m_shadow(shadow) {
    setGeometry(placeFor(label));
    m_field.setGeometry(rect());
    m_field.setReadOnly(true);
    m_field.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_field.setTabChangesFocus(true);
    m_field.setFrameShape(QFrame::NoFrame);
    m_field.setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_field.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_field.document()->setDocumentMargin(0);
    m_field.setFont(fontFor(label));
    QPalette palette = m_field.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, Colours::toQColor(label.ForeColor()));
    m_field.setPalette(palette);
    setFocusProxy(&m_field);
    hide();
    heading.names(*this);
    connect(&label, &Label::Change, this, &WholeText::follow);
}

bool WholeText::isTooLong() const {
    const QString& text = m_label.Caption();
    if (text.size() > neverFits) return true;
    const QRect room = m_label.rect();
    const QRect taken = QFontMetrics(m_label.font()).boundingRect(room, Qt::TextWordWrap, text.trimmed());
    return !room.contains(taken);
}

void WholeText::follow() {
    const bool isLong = isTooLong();
    m_field.setPlainText(isLong ? m_label.Caption().left(longestShown) : QString());
    setVisible(isLong);
    m_label.setVisible(!isLong);
    if (m_shadow != nullptr) m_shadow->setVisible(!isLong);
}

} // namespace torvane

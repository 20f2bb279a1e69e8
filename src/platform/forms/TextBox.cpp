// SPDX-License-Identifier: MIT
// Text fields over the toolkit's own editors.
#include "TextBox.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

namespace torvane {

namespace {
// The one piece in which two texts differ: where it begins and how long it is in the newer one.
struct Insertion {
    qsizetype start;
    qsizetype length;
};

Insertion insertionBetween(const QString& former, const QString& present) {
    const qsizetype shorter = std::min(former.size(), present.size());
    qsizetype front = 0;
    while (front < shorter && former[front] == present[front]) ++front;
    qsizetype back = 0;
    while (back < shorter - front && former[former.size() - 1 - back] == present[present.size() - 1 - back]) {
        ++back;
    }
    return {front, present.size() - front - back};
}
} // namespace

TextBox::TextBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_look(look) {
    setFontSpec(look.font);
    setText(QString::fromUtf8(look.text));
}

void TextBox::showEvent(QShowEvent* event) {
    makeField();
    Control::showEvent(event);
}

void TextBox::makeField() {
    if (m_line != nullptr || m_area != nullptr) return;
    m_look.multiLine ? makeArea() : makeLine();
    show(m_text, 0);
}

void TextBox::makeLine() {
    m_line = new QLineEdit(this);
    m_line->setFrame(false);
    m_line->setTextMargins(0, 0, 0, 0);
    dress(*m_line);
    connect(m_line, &QLineEdit::textChanged, this, &TextBox::takeEdit);
}

void TextBox::makeArea() {
    m_area = new QPlainTextEdit(this);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setTabChangesFocus(true);
    m_area->document()->setDocumentMargin(1);
    dress(*m_area);
    connect(m_area, &QPlainTextEdit::textChanged, this, &TextBox::takeEdit);
}

void TextBox::dress(QWidget& field) {
    field.setGeometry(rect());
    field.setAccessibleName(objectName());
    // What is dropped is the window's affair: a file must not end as its path in a field.
    field.setAcceptDrops(false);
    setFocusProxy(&field);
    setTabOrder(this, &field);
    QPalette palette = field.palette();
    palette.setColor(QPalette::Base, Colours::toQColor(m_look.back));
    palette.setColor(QPalette::Text, Colours::toQColor(m_look.fore));
    field.setPalette(palette);
    field.show();
}

QString TextBox::shownText() const { return m_line ? m_line->text() : m_area->toPlainText(); }

void TextBox::show(const QString& text, qsizetype cursor) {
    m_setting = true;
    if (m_line) {
        m_line->setText(text);
        m_line->setCursorPosition(static_cast<int>(cursor));
    } else {
        m_area->setPlainText(text);
        QTextCursor place = m_area->textCursor();
        place.setPosition(
            static_cast<int>(std::min<qsizetype>(cursor, m_area->document()->characterCount() - 1)));
        m_area->setTextCursor(place);
    }
    m_shown = shownText();
    m_setting = false;
}

void TextBox::setText(const QString& text) {
    const bool changes = text != m_text;
    m_text = text;
    if (m_line != nullptr || m_area != nullptr) show(text, 0);
    if (changes) emit Change();
}

void TextBox::takeEdit() {
    if (m_setting) return;
    QString present = shownText();
    const Insertion entered = insertionBetween(m_shown, present);
    const QString piece = present.sliced(entered.start, entered.length);
    const QString kept = m_filter ? m_filter(piece) : piece;
    if (kept != piece) {
        present.replace(entered.start, entered.length, kept);
        show(present, entered.start + kept.size());
        emit inputRefused();
    }
    m_shown = present;
    m_text = present;
    emit Change();
}

} // namespace torvane

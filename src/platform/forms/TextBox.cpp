// SPDX-License-Identifier: MIT
// Text fields over Qt's own editors.
#include "TextBox.h"
#include "TextArea.h"
#include "TextEdit.h"

#include <QLineEdit>
#include <QValidator>
#include <limits>

namespace torvane {

namespace {
using Validity = std::function<QValidator::State(QString& text, int& cursor)>;

// Has a field ask a function about each change before it takes it.
class Validator : public QValidator {
public:
    Validator(QObject& owner, Validity validity) : QValidator(&owner), m_validity(std::move(validity)) {}
    State validate(QString& text, int& cursor) const override { return m_validity(text, cursor); }

private:
    Validity m_validity;
};
} // namespace

TextBox::TextBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_look(look) {
    setFontSpec(look.font);
    setText(QString::fromUtf8(look.text));
}

// While the editors go they still ask the filter.
TextBox::~TextBox() {
    delete m_line;
    delete m_area;
}

void TextBox::showEvent(QShowEvent* event) {
    // One outside of the window's edges is a mere store: without an editor it takes no focus.
    if (liesInContainer()) makeField();
    Control::showEvent(event);
}

void TextBox::makeField() {
    if (m_line != nullptr || m_area != nullptr) return;
    m_look.multiLine ? makeArea() : makeLine();
    show(m_text);
}

void TextBox::makeLine() {
    m_line = new QLineEdit(this);
    m_line->setFrame(false);
    m_line->setTextMargins(0, 0, 0, 0);
    m_line->setMaxLength(std::numeric_limits<int>::max()); // else a long text would lose its end
    dress(*m_line);
    m_line->setValidator(new Validator(*m_line, [this](QString& text, int& cursor) {
        return filterLine(text, cursor) ? QValidator::Acceptable : QValidator::Invalid;
    }));
    connect(m_line, &QLineEdit::textChanged, this, &TextBox::takeLine);
    connect(m_line, &QLineEdit::returnPressed, this, &TextBox::entered);
}

void TextBox::makeArea() {
    m_area = new TextArea(this);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setTabChangesFocus(true);
    m_area->document()->setDocumentMargin(1);
    dress(*m_area);
    connect(m_area, &TextArea::textChanged, this, &TextBox::takeArea);
}

void TextBox::dress(QWidget& field) {
    field.setGeometry(rect());
    // What is dropped is the window's affair: a file must not end as its path in a field.
    field.setAcceptDrops(false);
    setFocusProxy(&field);
    setSpokenName(*this, accessibleName());
    setTabOrder(this, &field);
    QPalette palette = field.palette();
    palette.setColor(QPalette::Base, Colours::toQColor(m_look.back));
    palette.setColor(QPalette::Text, Colours::toQColor(m_look.fore));
    field.setPalette(palette);
    field.show();
}

void TextBox::show(const QString& text) {
    m_setting = true;
    if (m_line) {
        m_line->setText(text);
        m_line->setCursorPosition(0);
        m_shown = text;
    } else {
        m_area->setText(text);
        m_shown = m_area->rawText();
    }
    m_setting = false;
}

void TextBox::setText(const QString& text) {
    const bool changes = text != m_text;
    m_text = text;
    if (m_line != nullptr || m_area != nullptr) show(text);
    if (changes) emit Change();
}

void TextBox::selectAll() {
    if (m_line != nullptr) m_line->selectAll();
}

// What undo and redo bring back was in the field before: it need not pass the filter again.
bool TextBox::filterLine(QString& text, int& cursor) {
    if (m_setting || !m_filter || m_line->isRedoAvailable()) return true;
    const TextEdit edit = TextEdit::between(m_shown, text, cursor);
    if (edit.added == 0) return true;
    const QString piece = text.mid(edit.start, edit.added);
    const QString kept = m_filter(piece);
    if (kept == piece) return true;
    emit inputRefused();
    if (kept.isEmpty() && edit.removed == 0) return false; // Qt takes the step back
    text.replace(edit.start, edit.added, kept);
    cursor = static_cast<int>(edit.start + kept.size());
    m_shown = text; // it comes here once more, and has passed
    return true;
}

void TextBox::takeLine() {
    m_shown = m_line->text();
    if (!m_setting) take(m_shown);
}

// Line ends reach the filter as LF, also the soft ones that Shift and Return make.
void TextBox::filterArea() {
    QString raw = m_area->rawText();
    const TextEdit edit = TextEdit::between(m_shown, raw, m_area->textCursor().position());
    if (edit.added == 0) return;
    QString piece = raw.mid(edit.start, edit.added);
    const bool hasSoftEnds = piece.contains(QChar::LineSeparator);
    piece.replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
        .replace(QChar::LineSeparator, QLatin1Char('\n'));
    const QString kept = m_filter ? m_filter(piece) : piece;
    if (kept == piece && !hasSoftEnds) return;
    raw.replace(edit.start, edit.added, QString(kept).replace(QLatin1Char('\n'), QChar::ParagraphSeparator));
    m_setting = true;
    m_area->correctLastStep(raw, edit.start + kept.size());
    m_setting = false;
    if (kept != piece) emit inputRefused();
}

void TextBox::takeArea() {
    if (m_setting) return;
    if (!m_area->document()->isRedoAvailable()) filterArea();
    m_shown = m_area->rawText();
    take(m_area->text());
}

void TextBox::take(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    emit Change();
}

} // namespace torvane

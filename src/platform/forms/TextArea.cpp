// SPDX-License-Identifier: MIT
// Texts in and out of Qt's document. A line end that is not the usual one of its text lies in the format of
// its separator, so that it comes and goes with that, also by undo and redo.
#include "TextArea.h"
#include "TextEdit.h"

#include <QMimeData>
#include <QTextBlock>
#include <algorithm>

namespace torvane {

namespace {
constexpr int lineEndProperty = QTextFormat::UserProperty;

// The length of the line end at a place of a text; 0 where there is none. These are all the characters that
// separate two blocks of Qt's documents.
qsizetype lineEndAt(const QString& text, qsizetype place) {
    const QChar c = text[place];
    if (c == QLatin1Char('\r')) return text.mid(place + 1, 1) == QLatin1String("\n") ? 2 : 1;
    const bool isEnd =
        c == QLatin1Char('\n') || c == QChar::ParagraphSeparator || c == QChar(0xFDD0) || c == QChar(0xFDD1);
    return isEnd ? 1 : 0;
}

struct Line {
    QString text;
    QString end; ///< empty in the last line
};

QList<Line> linesOf(const QString& text) {
    QList<Line> lines;
    qsizetype start = 0;
    for (qsizetype place = 0; place < text.size();) {
        const qsizetype length = lineEndAt(text, place);
        if (length > 0) {
            lines.append({text.sliced(start, place - start), text.sliced(place, length)});
            start = place + length;
        }
        place += std::max<qsizetype>(length, 1);
    }
    lines.append({text.sliced(start), {}});
    return lines;
}
} // namespace

void TextArea::setText(const QString& text) {
    const QList<Line> lines = linesOf(text);
    m_lineEnd = lines.first().end.isEmpty() ? QStringLiteral("\n") : lines.first().end;
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    for (const Line& line : lines) {
        cursor.insertText(line.text, QTextCharFormat());
        if (line.end.isEmpty()) break;
        QTextCharFormat format;
        if (line.end != m_lineEnd) format.setProperty(lineEndProperty, line.end);
        cursor.insertBlock(QTextBlockFormat(), format);
    }
    cursor.endEditBlock();
    document()->setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
}

// A separator's format is that of the block which it begins.
QString TextArea::lineEndBefore(const QTextBlock& block) const {
    const QString own = block.charFormat().stringProperty(lineEndProperty);
    return own.isEmpty() ? m_lineEnd : own;
}

QString TextArea::text() const {
    QString text = document()->firstBlock().text();
    for (QTextBlock block = document()->firstBlock().next(); block.isValid(); block = block.next()) {
        text += lineEndBefore(block) + block.text();
    }
    return text;
}

// The step is undone and made anew. A correction after it would be a step of its own, and undoing that
// would bring back what it corrects.
void TextArea::correctLastStep(const QString& rawText, qsizetype cursorPlace) {
    document()->undo();
    document()->clearUndoRedoStacks(QTextDocument::RedoStack);
    const TextEdit edit = TextEdit::between(this->rawText(), rawText, cursorPlace);
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(edit.start));
    cursor.setPosition(static_cast<int>(edit.start + edit.removed), QTextCursor::KeepAnchor);
    cursor.insertText(rawText.mid(edit.start, edit.added));
    cursor.setPosition(static_cast<int>(cursorPlace));
    setTextCursor(cursor);
}

QMimeData* TextArea::createMimeDataFromSelection() const {
    auto* content = new QMimeData;
    content->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
    return content;
}

} // namespace torvane

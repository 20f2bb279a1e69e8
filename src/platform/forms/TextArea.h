// SPDX-License-Identifier: MIT
// Qt's editor of several lines, made to give back every character that it was given: Qt's own plain text
// turns no-break spaces into blanks, and CR LF and CR into LF.
#pragma once

#include <QPlainTextEdit>

namespace torvane {

class TextArea : public QPlainTextEdit {
    Q_OBJECT

public:
    using QPlainTextEdit::QPlainTextEdit;

    /// Shows a text, with the cursor at its beginning. There is nothing to undo afterwards.
    void setText(const QString& text);
    /// The text that was set with the edits since then. What the user has not touched, or has brought back
    /// by undo, is as it was set; a line that the user adds ends as the first one of the set text does, or
    /// with LF.
    QString text() const;
    /// The text with one character a place in the document: a line ends with a paragraph separator.
    QString rawText() const { return document()->toRawText(); }
    /// Replaces with another raw text and cursor what the last step of the user's editing made. It is
    /// undone as that step.
    void correctLastStep(const QString& rawText, qsizetype cursorPlace);

protected:
    QMimeData* createMimeDataFromSelection() const override;

private:
    QString lineEndBefore(const QTextBlock& block) const;

    QString m_lineEnd = QStringLiteral("\n"); // of all lines that keep no other one in the document
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// A list in the text form: names and values in blocks, as in game ( name "A" rom ( name "a.gb" size 32768 )
// ).
#pragma once

#include "ListReader.h"

#include <QStringDecoder>

namespace torvane {

/// UTF-16 is known by its mark. In all other lists a text that is not UTF-8 is taken as code page 1252.
class TextList : public ListReader {
public:
    explicit TextList(Takers takers) : ListReader(std::move(takers)) {}

    void add(const QByteArray& bytes) override;
    void finish() override;

private:
    qint64 line() const override { return m_line; }
    QByteArray decoded(const QByteArray& bytes);
    void take(char c);
    void takeQuoted(char c);
    void endWord();
    void takeWord(bool isQuoted);
    void open();
    void close();
    void setGame(const QByteArray& value);

    QByteArray m_start; // the first bytes, until it is clear whether they are a mark
    bool m_isStarted = false;
    QStringDecoder m_decoder;
    qint64 m_line = 1;
    bool m_isInQuotes = false;
    bool m_isAfterBackslash = false; // in a text in quotes
    QByteArray m_word;
    QByteArray m_name; // whose value comes next; empty if a name does
    int m_depth = 0;
    int m_gameDepth = 0; // the depth in the block of a game; 0 outside
    int m_romDepth = 0;
};

} // namespace torvane

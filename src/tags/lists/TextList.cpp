// SPDX-License-Identifier: MIT
// Words, brackets and blocks.
#include "TextList.h"
#include "platform/base/CodePage1252.h"

#include <utility>

namespace torvane {

namespace {
constexpr qsizetype longestWord = 4096; // in bytes; nothing longer fits into a tag
constexpr int deepest = 32;
constexpr qsizetype markSize = 3;

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

QByteArray asUtf8(const QByteArray& text) {
    return text.isValidUtf8() ? text : CodePage1252::fromBytes(text).toUtf8();
}

// Words that stand without a value.
bool isFlag(const QByteArray& word) { return word == "nodump" || word == "baddump" || word == "verified"; }
} // namespace

QByteArray TextList::decoded(const QByteArray& bytes) {
    if (m_isStarted) return m_decoder.isValid() ? QString(m_decoder(bytes)).toUtf8() : bytes;
    m_start += bytes;
    if (m_start.size() < markSize) return {};
    m_isStarted = true;
    if (m_start.startsWith("\xFF\xFE")) m_decoder = QStringDecoder(QStringDecoder::Utf16LE);
    if (m_start.startsWith("\xFE\xFF")) m_decoder = QStringDecoder(QStringDecoder::Utf16BE);
    if (m_decoder.isValid()) return QString(m_decoder(m_start)).toUtf8();
    return m_start.startsWith("\xEF\xBB\xBF") ? m_start.sliced(markSize) : m_start;
}

void TextList::add(const QByteArray& bytes) {
    if (hasFailed()) return;
    for (const char c : decoded(bytes)) {
        take(c);
        if (hasFailed()) return;
        if (c == '\n') ++m_line;
    }
}

void TextList::finish() {
    if (!m_isStarted && !hasFailed()) add(QByteArray(markSize, ' '));
    if (hasFailed()) return;
    endWord();
    if (hasFailed()) return;
    if (m_isInQuotes || m_depth > 0 || !m_name.isEmpty()) fail("it ends before its last block does");
}

void TextList::take(char c) {
    if (m_isInQuotes) return takeQuoted(c);
    const bool isBracket = c == '(' || c == ')';
    if (!isBracket && c != '"' && !isBlank(c)) {
        m_word += c;
        if (m_word.size() > longestWord) fail("a word is too long");
        return;
    }
    endWord();
    if (hasFailed()) return;
    if (c == '"') m_isInQuotes = true;
    if (c == '(') open();
    if (c == ')') close();
}

// A backslash makes a quotation mark or a backslash part of the text; before anything else it is one itself.
void TextList::takeQuoted(char c) {
    if (c == '\n') return fail("a quotation mark is missing");
    const bool isEscaped = std::exchange(m_isAfterBackslash, false);
    if (!isEscaped && c == '"') {
        m_isInQuotes = false;
        return takeWord(true);
    }
    m_isAfterBackslash = !isEscaped && c == '\\';
    if (m_isAfterBackslash) return;
    if (isEscaped && c != '"' && c != '\\') m_word += '\\';
    m_word += c;
    if (m_word.size() > longestWord) fail("a text is too long");
}

void TextList::endWord() {
    if (!m_word.isEmpty()) takeWord(false);
}

void TextList::takeWord(bool isQuoted) {
    const QByteArray word = asUtf8(m_word);
    m_word.clear();
    if (m_name.isEmpty()) {
        if (isQuoted || word.isEmpty()) return fail("a text stands where a name is expected");
        if (isFlag(word)) return setRom("status", word);
        m_name = word;
        return;
    }
    if (m_depth == 0) return fail("a bracket is missing");
    if (m_depth == m_romDepth) {
        setRom(m_name, word);
    } else if (m_depth == m_gameDepth) {
        setGame(word);
    }
    m_name.clear();
}

void TextList::setGame(const QByteArray& value) {
    const QByteArray text = value.simplified();
    if (m_name == "name") game().name = text;
    if (m_name == "description") game().description = text;
    if (m_name == "manufacturer") game().manufacturer = text;
    if (m_name == "publisher") game().publisher = text;
    if (m_name == "year") game().year = text;
}

void TextList::open() {
    if (m_name.isEmpty()) return fail("a block has no name");
    if (++m_depth > deepest) return fail("blocks are nested too deep");
    const bool isGame = m_name == "game" || m_name == "machine" || m_name == "resource";
    if (m_depth == 1 && isGame) m_gameDepth = m_depth;
    if (m_gameDepth > 0 && m_depth == m_gameDepth + 1 && m_name == "rom") {
        m_romDepth = m_depth;
        beginRom();
    }
    m_name.clear();
}

void TextList::close() {
    if (!m_name.isEmpty()) return fail("a value is missing");
    if (m_depth == 0) return fail("a bracket is closed that was not opened");
    if (m_depth == m_romDepth) {
        m_romDepth = 0;
        endRom();
    } else if (m_depth == m_gameDepth) {
        m_gameDepth = 0;
        game().end();
    }
    --m_depth;
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Comparing names with their beginning, in both cases.
#include "NameBeginning.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NativeText.h"

namespace torvane {

namespace {
bool isInCodePage(QChar c) { return CodePage1252::holds(QStringView(&c, 1)); }

// Letters outside the code page have the other case that Unicode gives them.
QChar otherCaseOutside(QChar c) {
    const QChar other = c.isUpper() ? c.toLower() : c.toUpper();
    return isInCodePage(other) ? c : other;
}

// The other letter of the code page with the same capital; the letter itself if there is none.
QChar otherCase(QChar c) {
    if (!isInCodePage(c)) return otherCaseOutside(c);
    const char byte = CodePage1252::toBytes(QStringView(&c, 1)).front();
    const char capital = CodePage1252::upper(byte);
    for (int code = 0; code < 256; ++code) {
        const auto candidate = static_cast<char>(code);
        if (candidate != byte && CodePage1252::upper(candidate) == capital) {
            return CodePage1252::fromBytes({&candidate, 1}).front();
        }
    }
    return c;
}
} // namespace

NameBeginning::NameBeginning(const QString& text) {
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const QString letter = text.mid(at, isPair ? 2 : 1);
        at += letter.size();
        const QString other = isPair ? letter : QString(otherCase(letter.front()));
        const QByteArray one = NativeText::toNative(letter);
        const QByteArray two = NativeText::toNative(other);
        m_letters.push_back({one, two, one.size() == 1 && two.size() == 1});
    }
}

// Most letters are single bytes, which are compared at once: a list may hold 100,000 names that begin alike.
bool NameBeginning::fits(QByteArrayView name) const {
    for (const Letter& letter : m_letters) {
        if (letter.isByte && !name.isEmpty()) {
            if (name.front() != *letter.one.constData() && name.front() != *letter.other.constData())
                return false;
            name = name.sliced(1);
            continue;
        }
        const bool isOne = name.startsWith(letter.one);
        if (!isOne && !name.startsWith(letter.other)) return false;
        name = name.sliced(isOne ? letter.one.size() : letter.other.size());
    }
    return true;
}

} // namespace torvane

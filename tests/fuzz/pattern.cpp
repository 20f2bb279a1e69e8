// SPDX-License-Identifier: MIT
// Patterns of file lists on any name: the result is that of a table over all prefixes of the form and of the
// name.
// Input: the pattern and the name.
#include "Fuzz.h"
#include "NameReference.h"
#include "platform/base/NamePattern.h"
#include "platform/base/NativeText.h"

#include <QStringList>
#include <vector>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
// Row by row: which prefixes of the name match the prefix of the form.
bool formMatches(const QString& form, const QString& name) {
    std::vector<bool> row(static_cast<size_t>(name.size()) + 1, false);
    row[0] = true;
    for (const QChar sign : form) {
        std::vector<bool> next(row.size(), false);
        const bool isStar = sign == QLatin1Char('*');
        next[0] = isStar && row[0];
        for (size_t i = 1; i < row.size(); ++i) {
            const bool isSame = sign == QLatin1Char('?') || sign == name[static_cast<qsizetype>(i) - 1];
            next[i] = isStar ? row[i] || next[i - 1] : isSame && row[i - 1];
        }
        row = next;
    }
    return row.back();
}

// ASCII endings are compared as such: the kelvin sign, whose lower case is "k", does not match "k".
bool isAsciiEnding(const QString& form) {
    if (form.size() < 2 || form.front() != QLatin1Char('*')) return false;
    return std::all_of(form.begin() + 1, form.end(), [](QChar c) {
        return c.unicode() < 0x80 && c != QLatin1Char('*') && c != QLatin1Char('?');
    });
}

bool expectedMatch(const QString& pattern, const QByteArray& name) {
    if (pattern.isEmpty()) return true;
    for (const QString& part : pattern.split(QLatin1Char(';'))) {
        if (part.isEmpty()) continue;
        const QString piece = part.trimmed();
        const QString form = piece == QStringLiteral("*.*") ? QStringLiteral("*") : caseFolded(piece);
        const QString text = isAsciiEnding(form) ? QString::fromLatin1(name.toLower())
                                                 : caseFolded(NativeText::fromNative(name));
        if (formMatches(form, text)) return true;
    }
    return false;
}
} // namespace

FUZZ_TARGET(pattern) {
    Input input(data, size);
    const QString pattern = NativeText::fromNative(input.piece());
    const QByteArray name = input.piece();
    require(NamePattern(pattern).matches(name) == expectedMatch(pattern, name), "a pattern matches");
    return 0;
}

// SPDX-License-Identifier: MIT
// Cutting a form of dates into its parts, and a text along them.
#include "DatePattern.h"
#include "platform/base/CodePage1252.h"

#include <algorithm>

namespace torvane {

namespace {
constexpr QChar quote = u'\'';

// How many equal characters a form begins with, up to a limit.
qsizetype runOf(QStringView form, qsizetype most) {
    qsizetype length = 1;
    while (length < std::min(most, form.size()) && form[length] == form[0]) ++length;
    return length;
}

// The length of a quoted text with its quotes; without a closing one it ends with the form.
qsizetype quotedLength(QStringView form) {
    const qsizetype end = form.indexOf(quote, 1);
    return end < 0 ? form.size() : end + 1;
}
} // namespace

DatePattern::DatePattern(const QString& form, const QDate& day) {
    for (QStringView rest(form); !rest.isEmpty();) rest = rest.sliced(addPart(rest, day));
}

qsizetype DatePattern::addPart(QStringView form, const QDate& day) {
    const QChar sign = form[0];
    const qsizetype run = sign == quote ? quotedLength(form) : runOf(form, 4);
    if (sign == u'd' && run <= 2) {
        m_parts.push_back({1, 2, day.day(), {}});
    } else if (sign == u'M' && run <= 2) {
        m_parts.push_back({1, 2, day.month(), {}});
    } else if (sign == u'y' && run == 4) {
        m_parts.push_back({4, 4, day.year(), {}});
    } else if (sign == u'y' && run >= 2) {
        m_parts.push_back({2, 2, day.year() % 100, {}});
        return 2;
    } else {
        m_parts.push_back({0, 0, 0, CodePage1252::toBytes(day.toString(form.first(run)))});
    }
    return run;
}

bool DatePattern::takePart(const Part& part, QByteArrayView& rest) {
    if (part.mostDigits == 0) {
        if (!rest.startsWith(part.text)) return false;
        rest = rest.sliced(part.text.size());
        return true;
    }
    int digits = 0;
    int value = 0;
    for (; digits < std::min<qsizetype>(part.mostDigits, rest.size()); ++digits) {
        const char byte = rest[digits];
        if (byte < '0' || byte > '9') break;
        value = 10 * value + (byte - '0');
    }
    rest = rest.sliced(digits);
    return digits >= part.fewestDigits && value == part.value;
}

bool DatePattern::matches(QByteArrayView text) const {
    return std::all_of(m_parts.begin(), m_parts.end(),
                       [&](const Part& part) { return takePart(part, text); }) &&
           text.isEmpty();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// From an age to the day, and from the day to the texts that mean it.
#include "EntryAge.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeFailure.h"

#include <algorithm>
#include <cmath>

namespace torvane {

namespace {
double julian(int year, int month, int day) {
    return static_cast<double>(QDate(year, month, day).toJulianDay());
}
} // namespace

EntryAge::EntryAge(const QString& age, const QDate& today, const QString& shortDateFormat) {
    if (age.isEmpty()) return;
    ignoring([&] {
        const double days = NumberText::toReal(CodePage1252::toBytes(age));
        const double day = std::floor(static_cast<double>(today.toJulianDay()) - days);
        if (day < julian(100, 1, 1) || day > julian(9999, 12, 31)) return;
        setDay(QDate::fromJulianDay(static_cast<qint64>(day)), shortDateFormat);
    });
}

void EntryAge::setDay(const QDate& day, const QString& shortDateFormat) {
    for (const QString& form : {shortDateFormat, QStringLiteral("d/M/yyyy"), QStringLiteral("yyyy-MM-dd")}) {
        // A form with other characters writes dates that the file can't hold.
        if (!form.isEmpty() && CodePage1252::holds(form)) m_forms.emplace_back(form, day);
    }
    const QString text = day.toString(shortDateFormat);
    if (CodePage1252::holds(text)) m_text = CodePage1252::toBytes(text);
}

bool EntryAge::passes(QByteArrayView date) const {
    if (passesAll() || (m_text && date == *m_text)) return true;
    return std::any_of(m_forms.begin(), m_forms.end(),
                       [&](const DatePattern& form) { return form.matches(date); });
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The filter's test of an entry's date against an age in days.
#pragma once

#include "DatePattern.h"

#include <optional>

namespace torvane {

/// Whether a date, a free text in bytes of code page 1252, is the day that was a number of days before today.
/// It is if it means that day in the user's short form, as d/M/yyyy or as yyyy-MM-dd (see DatePattern), or if
/// it equals that day's text in the short form.
///
/// Of a fraction of days the day counts in which that moment lies: 0.5 is yesterday at noon, so yesterday.
/// Every date passes if the age is empty or no number (see NumberText::toReal), and if the day would be
/// before the year 100 or after 9999, since no date can be subtracted then.
class EntryAge {
public:
    EntryAge(const QString& age, const QDate& today, const QString& shortDateFormat);

    bool passesAll() const { return m_forms.empty(); }
    bool passes(QByteArrayView date) const;

private:
    void setDay(const QDate& day, const QString& shortDateFormat);

    std::optional<QByteArray> m_text; // none if the code page can't hold it
    std::vector<DatePattern> m_forms;
};

} // namespace torvane

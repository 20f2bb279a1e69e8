// SPDX-License-Identifier: MIT
// Recognises one day in one written form of dates.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <vector>

namespace torvane {

/// All texts that mean a day in a form such as "dd/MM/yy" (as QDate takes it). Day and month may have a zero
/// before a single digit or not, whatever the form says; the year has as many digits as in the form. All else
/// has to be as QDate writes it.
class DatePattern {
public:
    DatePattern(const QString& form, const QDate& day);

    /// Whether a text, in bytes of code page 1252, means the day.
    bool matches(QByteArrayView text) const;

private:
    // A number, or else a text.
    struct Part {
        int fewestDigits = 0;
        int mostDigits = 0;
        int value = 0;
        QByteArray text;
    };

    qsizetype addPart(QStringView form, const QDate& day);
    static bool takePart(const Part& part, QByteArrayView& rest);

    std::vector<Part> m_parts;
};

} // namespace torvane

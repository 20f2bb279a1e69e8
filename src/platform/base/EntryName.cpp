// SPDX-License-Identifier: MIT
// Checking and trimming entry names.
#include "EntryName.h"
#include "NativeText.h"

#include <QList>
#include <algorithm>

namespace torvane::EntryName {

namespace {
constexpr qsizetype mostBytes = 255; // NAME_MAX of Linux

bool isAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool hasDrive(QByteArrayView name) { return name.size() > 1 && isAsciiLetter(name[0]) && name[1] == ':'; }

// Direction marks, embeddings, overrides and isolates (Unicode Standard Annex 9, section 2).
bool turnsDirection(QChar c) {
    const char16_t unit = c.unicode();
    return unit == 0x061C || unit == 0x200E || unit == 0x200F || (unit >= 0x202A && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069);
}

bool misleads(QChar c) {
    const QChar::Category category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph || turnsDirection(c);
}

bool isDevice(QByteArrayView name) {
    const qsizetype dot = name.indexOf('.');
    const QByteArray stem = name.first(dot < 0 ? name.size() : dot).toByteArray().trimmed().toUpper();
    static const QList<QByteArray> devices{"CON", "PRN", "AUX", "NUL"};
    const bool isNumbered = stem.size() == 4 && (stem.startsWith("COM") || stem.startsWith("LPT")) &&
                            stem[3] >= '1' && stem[3] <= '9';
    return isNumbered || devices.contains(stem);
}

QByteArrayView withoutEnds(QByteArrayView name) {
    while (name.startsWith("./")) name = name.sliced(2);
    while (name.endsWith('.') || name.endsWith(' ')) name.chop(1);
    return name;
}
} // namespace

QByteArray sanitized(QByteArrayView entry) {
    const QByteArrayView name = withoutEnds(entry);
    if (name.isEmpty() || name.size() > mostBytes || name.startsWith('.')) return {};
    if (name.contains('/') || name.contains('\\') || hasDrive(name) || isDevice(name)) return {};
    const QString text = NativeText::fromNative(name);
    if (std::any_of(text.begin(), text.end(), misleads)) return {};
    return name.toByteArray();
}

} // namespace torvane::EntryName

// SPDX-License-Identifier: MIT
// Comparison from both ends.
#include "TextEdit.h"

#include <algorithm>

namespace torvane {

namespace {
// The edit whose added piece ends `most` or more characters before the end of the text.
TextEdit editBefore(const QString& before, const QString& after, qsizetype most) {
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto sameFromEnd = [&](qsizetype i) {
        return before[before.size() - 1 - i] == after[after.size() - 1 - i];
    };
    qsizetype back = 0;
    while (back < std::min(most, shorter) && sameFromEnd(back)) ++back;
    if (back > 0 && after[after.size() - back].isLowSurrogate()) --back;
    qsizetype front = 0;
    while (front < shorter - back && before[front] == after[front]) ++front;
    if (front > 0 && after[front - 1].isHighSurrogate()) --front;
    return {front, before.size() - back - front, after.size() - back - front};
}
} // namespace

TextEdit TextEdit::between(const QString& before, const QString& after, qsizetype cursor) {
    const TextEdit smallest = editBefore(before, after, after.size());
    const TextEdit atCursor = editBefore(before, after, after.size() - cursor);
    return atCursor.added > smallest.added ? smallest : atCursor;
}

} // namespace torvane

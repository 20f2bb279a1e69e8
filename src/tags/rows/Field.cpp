// SPDX-License-Identifier: MIT
// Texts of tags as UTF-8.
#include "Field.h"
#include "platform/base/CodePage1252.h"

#include <algorithm>

namespace torvane {

Field Field::ofTagText(const QByteArray& text) {
    // Most texts are the same in both.
    if (std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; })) return {Kind::text, text};
    return {Kind::text, CodePage1252::fromBytes(text).toUtf8()};
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Reading the number box.
#include "TypedNumber.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NumberText.h"

namespace torvane {

// A character outside the code page becomes "?", which no number holds.
TypedNumber TypedNumber::read(const QString& text) {
    const QByteArray bytes = CodePage1252::toBytes(text);
    return {NumberText::toReal(bytes), NumberText::toShort(bytes), text.size()};
}

} // namespace torvane

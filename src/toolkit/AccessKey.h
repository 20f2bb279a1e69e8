// SPDX-License-Identifier: MIT
// The access key in a caption: the letter after an ampersand. Pure text; who presses it is not known here.
#pragma once

#include <QString>

namespace torvane {

/// The access key of a caption, in lower case; a null character if it has none. A doubled ampersand is
/// a plain one: the search goes on after it once, but not a second time.
QChar accessKeyOf(const QString& caption);

/// The caption as it is read aloud: marks left out, doubled ampersands single.
QString withoutAccessMarks(const QString& caption);

} // namespace torvane

// SPDX-License-Identifier: MIT
// What a user has entered, as one line of a data file can hold it.
#pragma once

#include <QString>
#include <functional>

namespace torvane {

/// The text on one line in code page 1252: line breaks and other control characters become blanks, and a
/// character that the code page lacks becomes what `substitute` gives for it, which the code page must hold;
/// without a function, nothing.
QString lineText(const QString& entered, const std::function<QString(const QString&)>& substitute = {});

} // namespace torvane

// SPDX-License-Identifier: MIT
// A setting's text as one line of bytes, and back. Who keeps the lines is Settings.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::SettingLine {

/// The line of any text that the program can come by: what a line can't carry stands as "%" and two digits.
/// A user may call a folder " a" or "a\nb". Other texts, paths among them, stay as they are.
QByteArray of(const QString& text);
/// The text of a line. A backslash in it separates folders, as the program writes it.
QString textOf(const QByteArray& line);

} // namespace torvane::SettingLine

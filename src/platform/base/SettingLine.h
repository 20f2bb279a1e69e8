// SPDX-License-Identifier: MIT
// Converts the text of a setting to one line of bytes and back. Settings stores the lines.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::SettingLine {

/// The line for any text: characters that a line can't hold are escaped as "%" and two digits, since a user
/// may name a folder " a" or "a\nb". Other texts, ordinary paths included, stay as they are.
QByteArray of(const QString& text);
/// The text of a line. A backslash in it separates folders, as the program writes it.
QString textOf(const QByteArray& line);

} // namespace torvane::SettingLine

// SPDX-License-Identifier: MIT
// Files in INI form, read and written through SimpleIni. Nothing is kept between calls: what a file
// says now is what a caller gets. Sections and keys are compared without regard to (ASCII) case.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace torvane::IniFile {

/// The bytes of a value without the blanks around it; nothing if file, section or key is missing or the
/// file can't be read or is larger than 4 MiB. Of a doubled key the last one counts.
std::optional<QByteArray> value(const QString& file, const QByteArray& section, const QByteArray& key);

/// Creates or replaces one value and keeps all others, and the comments in front of them. The file is
/// replaced at once and safely (see SafeFile). Fails with the number of the system's reason, and with an
/// invalid call if the form can't hold a section, key or value: line breaks, zero bytes, blanks at the ends
/// and "=" in a key are such. Then the file is as before, as it is if it is there but can't be read.
void setValue(const QString& file, const QByteArray& section, const QByteArray& key, const QByteArray& value);

/// A value in bytes that are the content of such a file, as `value` gives it.
std::optional<QByteArray> valueIn(const QByteArray& content, const QByteArray& section,
                                  const QByteArray& key);
/// The content with one value created or replaced, as `setValue` writes it; fails as that does.
QByteArray withValue(const QByteArray& content, const QByteArray& section, const QByteArray& key,
                     const QByteArray& value);

} // namespace torvane::IniFile

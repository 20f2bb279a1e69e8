// SPDX-License-Identifier: MIT
// Files in INI form, read and written via SimpleIni. Nothing is cached: callers get what the file says now.
// Sections and keys are compared without regard to (ASCII) case.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>
#include <utility>

namespace torvane::IniFile {

/// In bytes, larger than any language or settings file: a wrong path must not exhaust memory.
constexpr qint64 largestFile = 4 << 20;

/// The bytes of a value without surrounding blanks; nothing if the file, section or key is missing, or if the
/// file can't be read or is larger than `largestFile`. Of a repeated key the last one counts.
std::optional<QByteArray> value(const QString& file, const QByteArray& section, const QByteArray& key);

/// Creates or replaces one value; keeps all others and the comments before them. Replaces the file atomically
/// (see SafeFile), unless it has the value already. Fails with the number of the system's error, and with
/// invalidCall if the form can't hold a section, key or value: line breaks, zero bytes, blanks at the ends,
/// "=" in a key. Also fails if the file exists but can't be read. A failure leaves the file as it was.
void setValue(const QString& file, const QByteArray& section, const QByteArray& key, const QByteArray& value);
/// The same for several keys of a section, each with its value: all of them in one replacement of the file,
/// or none. A file that has all these values already is left alone.
void setValues(const QString& file, const QByteArray& section,
               const QList<std::pair<QByteArray, QByteArray>>& values);

/// A value in the bytes of such a file, as `value` gives it.
std::optional<QByteArray> valueIn(const QByteArray& content, const QByteArray& section,
                                  const QByteArray& key);
/// The content with one value created or replaced, as `setValue` writes it; fails as that does.
QByteArray withValue(const QByteArray& content, const QByteArray& section, const QByteArray& key,
                     const QByteArray& value);

} // namespace torvane::IniFile

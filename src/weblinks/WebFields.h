// SPDX-License-Identifier: MIT
// The form of a line of the web lists: name, address and kind in code page 1252, separated by ";". Nothing is
// escaped, so that a ";" in a field shifts those after it.
#pragma once

#include <QByteArray>
#include <QString>

namespace torvane::WebFields {

constexpr char separator = ';';

/// The field of a line, counted from 0; a null view if the line has fewer. An empty line has none.
QByteArrayView fieldOf(QByteArrayView line, int number);
/// The line of three fields, without a line end. Characters outside the code page become "?".
QByteArray lineOf(const QString& name, const QString& address, const QString& kind);

/// What is left of a file without the first occurrence of a line, wherever its bytes are: what is before it,
/// and what follows up to its second occurrence or to the end. What follows a second occurrence is lost.
/// `isFound` is false, and both parts are empty, if the line, which must not be empty, does not occur.
struct Remains {
    bool isFound = false;
    QByteArrayView before = {};
    QByteArrayView after = {};
};
Remains without(QByteArrayView file, QByteArrayView line);

/// The form of an entered address that the file can hold (see lineText); characters that the code page lacks
/// are percent-encoded.
QString storableAddress(const QString& entered);

} // namespace torvane::WebFields

// SPDX-License-Identifier: MIT
// Patterns of file lists: pieces with "*" and "?" separated by ";", without regard to case.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace torvane {

class NamePattern {
public:
    /// An empty pattern, "*" and "*.*" match every name.
    explicit NamePattern(const QString& pattern);

    /// Whether one of the pieces matches the whole name (bytes as the file system has them).
    bool matches(QByteArrayView name) const;

private:
    struct Piece {
        QByteArray ending; // for "*" and a literal ASCII ending: that ending in lower case; else empty
        QString form;      // the whole piece, case-folded
    };
    std::vector<Piece> m_pieces;
};

} // namespace torvane

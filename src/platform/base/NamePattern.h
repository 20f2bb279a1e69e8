// SPDX-License-Identifier: MIT
// Patterns of file lists: pieces with "*" and "?" separated by ";", without regard to case.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace torvane {

class NamePattern {
public:
    /// An empty pattern, "*" and "*.*" match every name, as in every file list of this kind.
    explicit NamePattern(const QString& pattern);

    /// Whether one of the pieces matches the whole name (bytes as the file system has them).
    bool matches(QByteArrayView name) const;

private:
    struct Piece {
        QByteArray ending; // of "*" and this ending in lower case ASCII; empty for any other form
        QString form;      // the piece as it stands, case-folded
    };
    std::vector<Piece> m_pieces;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The beginning of a name that is searched for among many. It is compared with the bytes of file names, so
// that a search makes no text of any of them.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <vector>

namespace torvane {

class NameBeginning {
public:
    explicit NameBeginning(const QString& text);

    /// Whether a file name (see NativeText) begins with the text. Case does not count: for the letters of
    /// code page 1252 as in the tag database (see CodePage1252::upper), for others as Unicode pairs them.
    bool fits(QByteArrayView name) const;

private:
    // A character in UTF-8 and its other case; the same twice for what has none.
    struct Letter {
        QByteArray one, other;
        bool isByte; ///< a single byte in both cases
    };
    std::vector<Letter> m_letters;
};

} // namespace torvane

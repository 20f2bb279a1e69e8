// SPDX-License-Identifier: MIT
// The games that a command works on, from the files and folders of its command line.
#pragma once

#include "platform/base/FolderNames.h"

#include <QByteArrayList>
#include <functional>

namespace torvane {

class Reports;
class RuntimeFailure;

/// The names of games: those of the game list, and the "bin" files whose size tells the console.
inline const QString gamePatterns = QStringLiteral("*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip;*.bin");

/// A game as the user names it, and where it is.
struct GameFile {
    QByteArray name; ///< as given or, for a game of a folder, the folder as given and the name in it
    QByteArray path; ///< real; ends with the name
};

class GameFiles {
public:
    /// `library`: the real path of the folder of games.
    GameFiles(const QByteArray& library, Reports& reports) : m_library(library), m_reports(reports) {}

    /// Adds a file, or the games directly in a folder, in the order of the game list. A relative name that
    /// does not exist is looked for in the library. What can't be found or read is reported.
    void add(const QByteArray& operand);
    /// Adds the games of the library, named without their folder. A library that can't be read is reported.
    void addLibrary();

    int count() const { return m_count; }
    /// How many operands could not be found or read.
    int faults() const { return m_faults; }
    /// Hands over one game after the other until there are no more or the result is false.
    void visit(const std::function<bool(const GameFile&)>& take) const;

    /// Where a name leads: to the file or folder itself or, if there is none of a relative name, to the one
    /// in the library. Fails if there is neither.
    static QByteArray found(const QByteArray& name, const QByteArray& library);

private:
    // One file, or the names of a folder.
    struct Source {
        GameFile start; // for a folder, what comes before each name
        std::shared_ptr<const FolderNames> names;
    };
    void addFolder(const GameFile& folder);
    void report(const QByteArray& name, const RuntimeFailure& failure);

    QByteArray m_library;
    Reports& m_reports;
    std::vector<Source> m_sources;
    int m_count = 0;
    int m_faults = 0;
};

} // namespace torvane

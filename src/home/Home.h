// SPDX-License-Identifier: MIT
// The folder that the program works in: its games, languages and lists. One program has two homes. Portable:
// the folder of the executable, with all in it. Installed: a folder of the user's, laid out from a template
// that the package brings along.
#pragma once

#include "platform/base/RuntimeFailure.h"

#include <QByteArray>
#include <optional>

namespace torvane {

/// What a home is chosen by. All paths are real ones.
struct HomeQuestion {
    QByteArray applicationFolder; ///< of the executable
    QByteArray installedTemplate; ///< an absolute path, or one relative to the folder of the executable
    QByteArray userData; ///< the folder for data of the user (see UserFolders); empty if there is none
    QByteArray given;    ///< the folder that the user has asked for; relative or not, empty for none
};

struct Home {
    enum class Kind {
        portable, ///< the folder of the executable, as it is
        user,     ///< a folder of the user's, laid out from the template
        given,    ///< the folder that the user has asked for, laid out from the template
        readOnly, ///< the folder of the executable, which can't be written to: for looking only
    };
    Kind kind = Kind::portable;
    QByteArray folder;         ///< absolute real path; empty if the user has none
    QByteArray templateFolder; ///< empty if there is none
};

/// A home is portable if the folder `data` beside the executable can be written to. Otherwise it is that of
/// the user, if there is a template. A folder that was asked for beats both; without an installed template it
/// is laid out from the folder of the executable, with those of its files that are as they were built.
Home chooseHome(const HomeQuestion& question);

/// A home that can be worked in.
struct OpenedHome {
    QString folder;            ///< spelled
    bool isForLooking = false; ///< nothing can be written there
    /// Why it is for looking only, or why not all of it could be laid out or updated; none if all is well.
    std::optional<RuntimeFailure> problem;
    /// Nobody can work here, nor may look: of the folder, nothing but texts may be used.
    bool isClosed = false;
};

/// Lays a home out, or brings it up to date. Never fails: a home that can't be written to is opened as it is
/// if it was laid out before, and otherwise in its template; but in no template that can be written to, such
/// as the library of a portable program: that is not what the user has asked for, and it would be changed.
OpenedHome openHome(const Home& home);

/// Removes what a killed lay-out has left in a home (spelled path). Never fails.
void sweepHome(const QString& folder);

} // namespace torvane

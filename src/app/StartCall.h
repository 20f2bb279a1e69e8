// SPDX-License-Identifier: MIT
// What a second start hands over to the first one.
#pragma once

#include <QByteArrayList>
#include <optional>

namespace torvane {

struct StartCall {
    QByteArray startupId;       ///< DESKTOP_STARTUP_ID of the second start; empty if it has none
    QByteArray activationToken; ///< XDG_ACTIVATION_TOKEN of the second start; empty if it has none
    QByteArrayList files;       ///< absolute real paths

    /// The call of this process: what its desktop has said of the start, and these files.
    static StartCall ofThisProcess(const QByteArrayList& files);

    /// As one message. No item may have a zero character.
    QByteArray packed() const;
    /// The content of such a message; nothing if it is none.
    static std::optional<StartCall> unpacked(const QByteArray& message);
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The message between two starts: zero-terminated items.
#include "StartCall.h"

#include <algorithm>

namespace torvane {

namespace {
// Comes first. A later version that says other things takes another word, so that this one takes nothing else
// from it.
constexpr QByteArrayView kind = "torvane-start-1";
constexpr qsizetype itemsBeforeFiles = 3;
} // namespace

StartCall StartCall::ofThisProcess(const QByteArrayList& files) {
    return {qgetenv("DESKTOP_STARTUP_ID"), qgetenv("XDG_ACTIVATION_TOKEN"), files};
}

QByteArray StartCall::packed() const {
    QByteArray message;
    for (const QByteArray& item : QByteArrayList{kind.toByteArray(), startupId, activationToken} + files) {
        message += item + '\0';
    }
    return message;
}

std::optional<StartCall> StartCall::unpacked(const QByteArray& message) {
    if (!message.endsWith('\0')) return std::nullopt;
    QByteArrayList items = message.chopped(1).split('\0');
    if (items.size() < itemsBeforeFiles || items[0] != kind) return std::nullopt;
    StartCall call{items[1], items[2], items.sliced(itemsBeforeFiles)};
    const auto isAbsolute = [](const QByteArray& path) { return path.startsWith('/'); };
    if (!std::all_of(call.files.begin(), call.files.end(), isAbsolute)) return std::nullopt;
    return call;
}

} // namespace torvane

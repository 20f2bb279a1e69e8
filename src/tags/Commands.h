// SPDX-License-Identifier: MIT
// The table of commands. A new one is a class in files of its own, and a row here.
#pragma once

#include "tags/commands/Command.h"

#include <memory>

namespace torvane {

struct CommandEntry {
    const char* name;
    const char* purpose; ///< in a few words, for the list of commands
    std::unique_ptr<Command> (*make)();
};

/// All commands, in the order of the help.
const std::vector<CommandEntry>& commands();
/// The command of a name; null if there is none.
const CommandEntry* commandNamed(const QByteArray& name);

} // namespace torvane

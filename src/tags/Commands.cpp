// SPDX-License-Identifier: MIT
// One row for each command.
#include "Commands.h"
#include "tags/commands/ClearCommand.h"
#include "tags/commands/CopyTagsCommand.h"
#include "tags/commands/ExportCommand.h"
#include "tags/commands/HashCommand.h"
#include "tags/commands/IdentifyCommand.h"
#include "tags/commands/ImportCommand.h"
#include "tags/commands/ListCommand.h"
#include "tags/commands/PlayCommand.h"
#include "tags/commands/SetCommand.h"
#include "tags/commands/ShowCommand.h"
#include "tags/commands/UndoCommand.h"
#include "tags/commands/VerifyCommand.h"

#include <algorithm>

namespace torvane {

namespace {
template <typename Kind>
std::unique_ptr<Command> make() {
    return std::make_unique<Kind>();
}

const std::vector<CommandEntry> table = {
    {"list", "print a line for each game", make<ListCommand>},
    {"show", "print all that is known of games", make<ShowCommand>},
    {"set", "give games a tag, or other texts in it", make<SetCommand>},
    {"clear", "remove the tags of games", make<ClearCommand>},
    {"copy-tags", "give games the tags of others", make<CopyTagsCommand>},
    {"undo", "take back what the last command has changed", make<UndoCommand>},
    {"verify", "find what is wrong with games and their tags", make<VerifyCommand>},
    {"export", "write the tags of games as a database file", make<ExportCommand>},
    {"import", "give games the tags of a database file", make<ImportCommand>},
    {"play", "run a game in the emulator", make<PlayCommand>},
    {"hash", "print checksums of games without their tags", make<HashCommand>},
    {"identify", "find games in lists of known games", make<IdentifyCommand>},
};
} // namespace

const std::vector<CommandEntry>& commands() { return table; }

const CommandEntry* commandNamed(const QByteArray& name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const CommandEntry& entry) { return entry.name == name; });
    return found == table.end() ? nullptr : &*found;
}

} // namespace torvane

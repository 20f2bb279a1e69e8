// SPDX-License-Identifier: MIT
// Printing games as sheets.
#include "ShowCommand.h"
#include "tags/rows/RowFormat.h"
#include "tags/session/GameRow.h"

namespace torvane {

std::vector<OptionForm> ShowCommand::options() const { return RowFormat::options(); }

QByteArray ShowCommand::help() const {
    return QByteArray("[OPTION]... FILE...\n"
                      "Prints the file, console, tag and sizes in bytes of each game, one a line.\n"
                      "\n") +
           RowFormat::help;
}

QByteArray ShowCommand::faultOf(const Arguments& given) const {
    return given.operands.isEmpty() ? "a file is missing" : QByteArray();
}

void ShowCommand::run(const Arguments& given, Session& session) {
    const auto rows =
        RowFormat::writer(given, RowFormat::Plain::sheets, GameRow::columns(), session.output());
    const auto show = [&](const GameFile& game) { rows->add(GameRow::of(game, session.names())); };
    session.eachGame(session.games(given.operands), show, rows.get());
    rows->finish();
}

} // namespace torvane

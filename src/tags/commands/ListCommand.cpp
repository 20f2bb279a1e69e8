// SPDX-License-Identifier: MIT
// Printing games as rows.
#include "ListCommand.h"
#include "tags/rows/RowFormat.h"
#include "tags/session/GameRow.h"

namespace torvane {

std::vector<OptionForm> ListCommand::options() const { return RowFormat::options(); }

QByteArray ListCommand::help() const {
    return QByteArray("[OPTION]... [FOLDER|FILE]...\n"
                      "Prints a line for each game: its file, console, tag and sizes in bytes. Of a\n"
                      "FOLDER these are the games directly in it; without operands, those of the\n"
                      "library.\n"
                      "\n") +
           RowFormat::help;
}

void ListCommand::run(const Arguments& given, Session& session) {
    GameFiles games = session.games(given.operands);
    if (given.operands.isEmpty()) games.addLibrary();
    const auto rows = RowFormat::writer(given, RowFormat::Plain::table, GameRow::columns(), session.output());
    session.eachGame(
        games, [&](const GameFile& game) { rows->add(GameRow::of(game, session.names())); }, rows.get());
    rows->finish();
}

} // namespace torvane

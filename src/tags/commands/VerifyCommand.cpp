// SPDX-License-Identifier: MIT
// Choosing the checks for each game.
#include "VerifyCommand.h"
#include "catalogue/ImageEnd.h"
#include "platform/base/File.h"
#include "tags/checks/AdvanceHeader.h"
#include "tags/checks/ArchiveCheck.h"
#include "tags/checks/GameBoyHeader.h"
#include "tags/checks/TagCheck.h"
#include "tags/checks/Twins.h"
#include "tags/images/GameContent.h"
#include "tags/rows/RowFormat.h"

#include <bit>

namespace torvane {

namespace {
class Verification {
public:
    Verification(const Arguments& given, Session& session)
        : m_session(session),
          m_rows(RowFormat::writer(given, RowFormat::Plain::table,
                                   {{"file"}, {"what"}, {"where"}, {"expected"}, {"found"}},
                                   session.output())) {}

    void run(const GameFiles& games) {
        m_session.eachGame(
            games, [this](const GameFile& game) { checkGame(game); }, m_rows.get());
        m_twins.find(m_session, [this](const GameFile& later, const GameFile& first) {
            add(later, {"same image as another", {}, {}, Field::ofName(first.name)});
        });
        m_rows->finish();
        if (m_findings == 0) return;
        m_session.reports().refusal(QByteArray::number(m_findings) +
                                    (m_findings == 1 ? " finding" : " findings"));
    }

private:
    void checkGame(const GameFile& game) {
        const QByteArray console = GameContent::of(game.name);
        const File file = File::ofReal(game.path);
        const qint64 length = file.length();
        if (console == "ZIP") {
            const auto goesOn = [this] { return !m_session.isOver(); };
            add(game, ArchiveCheck::check(game.path, m_session.names(), goesOn));
            return m_twins.add(game, file.handle(), length);
        }
        add(game, TagCheck::of(file.handle(), length));
        const qint64 image = ImageEnd::in(file.handle(), length).length();
        if (console == "GBA") add(game, AdvanceHeader::check(file.handle(), image));
        if (console == "GB" || console == "GBC") add(game, GameBoyHeader::check(file.handle(), image));
        if (!std::has_single_bit(static_cast<quint64>(image)))
            add(game, {"size that is no power of two", {}, {}, Field::ofNumber(image)});
        m_twins.add(game, file.handle(), image);
    }
    void add(const GameFile& game, const Findings& findings) {
        for (const Finding& finding : findings) add(game, finding);
    }
    void add(const GameFile& game, const Finding& finding) {
        ++m_findings;
        m_rows->add({Field::ofName(game.name), Field::ofName(finding.what), finding.place, finding.expected,
                     finding.found});
    }

    Session& m_session;
    std::unique_ptr<RowWriter> m_rows;
    Twins m_twins;
    qint64 m_findings = 0;
};
} // namespace

std::vector<OptionForm> VerifyCommand::options() const { return RowFormat::options(); }

QByteArray VerifyCommand::help() const {
    return QByteArray("[OPTION]... [FOLDER|FILE]...\n"
                      "Prints what is wrong with games: tags that are not as a save writes them,\n"
                      "headers whose logo, checksums or size are wrong, sizes that are no power of\n"
                      "two, archives without a game, and images that another game has, too. Without\n"
                      "operands: of the games of the library. The exit status is 1 if any is found.\n"
                      "\n") +
           RowFormat::help;
}

void VerifyCommand::run(const Arguments& given, Session& session) {
    GameFiles games = session.games(given.operands);
    if (given.operands.isEmpty()) games.addLibrary();
    Verification(given, session).run(games);
}

} // namespace torvane

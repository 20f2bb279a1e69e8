// SPDX-License-Identifier: MIT
// From one game to another, or between the games of two folders that have the same names.
#include "CopyTagsCommand.h"
#include "platform/base/File.h"
#include "tags/edits/GivenTag.h"
#include "tags/edits/WritableGame.h"

namespace torvane {

namespace {
bool isFolderAt(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool existsAt(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0;
}

QByteArray inFolder(const QByteArray& folder, const QByteArray& file) {
    return (folder.endsWith('/') ? folder : folder + '/') + file.sliced(file.lastIndexOf('/') + 1);
}

class TagCopies {
public:
    TagCopies(const Arguments& given, Session& session)
        : m_session(session), m_edits(ChangeRows::modeOf(given), session), m_rows(given, session.output()) {}

    void copyAll(const GameFile& from, const GameFile& to) {
        const bool isFromFolder = isFolderAt(from.path);
        const bool isIntoFolder = isFolderAt(to.path);
        if (isFromFolder && !isIntoFolder) return m_session.reports().fault(to.name, "it is no folder");
        const auto copy = [&](const GameFile& source) {
            const GameFile game{isIntoFolder ? inFolder(to.name, source.name) : to.name,
                                isIntoFolder ? inFolder(to.path, source.name) : to.path};
            // Of two folders, only games that both of them have are meant.
            if (isFromFolder && !existsAt(game.path)) return;
            copyOne(source, game, !isFromFolder);
        };
        m_session.eachGame(m_session.games({from.name}), copy, m_rows.writer());
        m_edits.finish();
        m_rows.finish();
    }

private:
    void copyOne(const GameFile& source, const GameFile& game, bool needsTag) {
        Reports& reports = m_session.reports();
        const File file = File::ofReal(source.path);
        const auto tag = TagWindow::tag(file.handle(), file.length());
        if (!tag && needsTag) return reports.fault(source.name, "it has no tag");
        if (!tag) return;
        const QByteArray fault = faultOfWriting(game.name, m_session.names());
        if (!fault.isEmpty()) return reports.fault(game.name, fault);
        m_session.attempt(game.name, [&] { write(*tag, source, game); });
    }
    void write(const TagWindow::Tag& tag, const GameFile& source, const GameFile& game) {
        const TagEdits::State state = m_edits.stateOf(game);
        // The date comes with the tag, so that of today is not needed.
        const GivenTag::Result result = GivenTag::of(tag.fields).over(state.tag, state.length, {});
        if (!result.fault.isEmpty())
            return m_session.reports().fault(source.name + ": " + game.name, result.fault);
        if (!result.isNew) return;
        const TagEdit edit{game, result.fields};
        m_rows.add(edit, state);
        m_edits.add(edit, state);
    }

    Session& m_session;
    TagEdits m_edits;
    ChangeRows m_rows;
};
} // namespace

std::vector<OptionForm> CopyTagsCommand::options() const { return ChangeRows::options(); }

QByteArray CopyTagsCommand::help() const {
    return "[OPTION]... FROM TO\n"
           "Gives the game TO the tag of the game FROM, with its date. If TO is a folder,\n"
           "the game of the same name in it is meant; if FROM is one, too, all games that\n"
           "have a tag there and are in both.\n"
           "\n" +
           ChangeRows::help();
}

QByteArray CopyTagsCommand::faultOf(const Arguments& given) const {
    return given.operands.size() == 2 ? QByteArray() : "it takes two files or folders";
}

void CopyTagsCommand::run(const Arguments& given, Session& session) {
    std::vector<GameFile> ends;
    for (const QByteArray& name : given.operands) {
        session.attempt(name, [&] { ends.push_back({name, GameFiles::found(name, session.library())}); });
    }
    if (ends.size() == 2) TagCopies(given, session).copyAll(ends[0], ends[1]);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// What a start makes of any note beside any game: an interrupted end is restored if the game's own end is a
// mixture of the old and the new one, and everything else stays as it is.
// Input: the kind of the note, the image, and the bytes of a note, or the ends that a sound note holds and
// how they are mixed in the game.
#include "Fuzz.h"
#include "platform/base/Leftovers.h"
#include "platform/base/TailNote.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QIODevice>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
enum class Kind { anyBytes, anyContent, sound, append, count };

const std::string game = "a.gb";

QByteArray withHash(const QByteArray& content) {
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256) + content;
}

QByteArray packed(const TailChange& change, bool isAppend) {
    QByteArray content;
    QDataStream stream(&content, QIODevice::WriteOnly);
    if (isAppend) {
        stream << change.name << change.start << change.after;
    } else {
        stream << change.name << change.inode << change.start << change.before << change.after;
    }
    return content;
}

// Each byte of the game's end: from the old end, from the new one, zero, or from somebody else.
QByteArray mixed(Input& input, const QByteArray& before, const QByteArray& after) {
    const qsizetype longest = std::max(before.size(), after.size()) + 2;
    QByteArray found(input.number(static_cast<int>(longest) + 1), '\0');
    for (qsizetype i = 0; i < found.size(); ++i) {
        const int choice = input.byte();
        if (choice % 8 < 4 && i < before.size()) found[i] = before[i];
        if (choice % 8 >= 4 && i < after.size()) found[i] = after[i];
        if (choice >= 0xF0) found[i] = static_cast<char>(choice);
    }
    return found;
}

// Read as plainly as possible.
QByteArray expectedEnd(const QByteArray& found, const QByteArray& before, const QByteArray& after) {
    if (found == after) return after;
    if (found.size() < std::min(before.size(), after.size())) return found;
    if (found.size() > std::max(before.size(), after.size())) return found;
    for (qsizetype i = 0; i < found.size(); ++i) {
        const bool isOld = i < before.size() && found[i] == before[i];
        const bool isNew = i < after.size() && found[i] == after[i];
        if (!isOld && !isNew && found[i] != '\0') return found;
    }
    return before;
}

class Round {
public:
    explicit Round(const Scratch& folder) : m_folder(folder) {}

    // Returns the game after the next start.
    QByteArray after(const QByteArray& content, const QByteArray& note, bool isAppend) const {
        const std::string name = isAppend ? ".torvane-append-abcdef" : ".torvane-tail-abcdef";
        m_folder.write(game, content.toStdString());
        m_folder.write(name, note.toStdString());
        Leftovers::sweep(QString::fromStdString(m_folder.path()));
        require(m_folder.read(name) == "(none)", "the note is removed");
        return QByteArray::fromStdString(m_folder.read(game));
    }

private:
    const Scratch& m_folder;
};
} // namespace

FUZZ_TARGET(tail_note) {
    static const Scratch folder;
    const Round round(folder);
    Input input(data, size);
    const auto kind = static_cast<Kind>(input.byte() % static_cast<int>(Kind::count));
    const QByteArray image = input.piece();
    if (kind == Kind::anyBytes) {
        const QByteArray note = input.rest();
        require(round.after(image, note, false) == image, "a damaged note changes nothing");
        return 0;
    }
    if (kind == Kind::anyContent) {
        round.after(image, withHash(input.rest()), image.size() % 2 == 0);
        return 0;
    }
    const bool isAppend = kind == Kind::append;
    const QByteArray before = isAppend ? QByteArray() : input.piece();
    const QByteArray after = input.piece();
    const TailChange change{QByteArray::fromStdString(game), 0, image.size(), before, after};
    const QByteArray found = mixed(input, before, after);
    const QByteArray result = round.after(image + found, withHash(packed(change, isAppend)), isAppend);
    require(result == image + expectedEnd(found, before, after), "only an interrupted end is restored");
    return 0;
}

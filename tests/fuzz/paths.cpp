// SPDX-License-Identifier: MIT
// Spelled paths of any text over a small tree with difficult names: they must lead to what a walk through a
// list of the tree gives.
// Input: the number of a file of the tree, a byte for the spelling of each of its letters in turn, and text
// to append.
#include "platform/base/Paths.h"
#include "Fuzz.h"
#include "NameReference.h"
#include "platform/base/NativeText.h"

#include <QByteArrayList>
#include <array>
#include <map>
#include <optional>
#include <set>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
const std::array<const char*, 12> files = {"Roms/Data/Game One.gb",
                                           "Two/x",
                                           "two/y",
                                           "TWO/z/Z/z",
                                           "\xC3\x9Cml\xC3\xA4ut/\xC3\x89.gb",
                                           "back\\slash/\\",
                                           "no\xFFtext/\xF1.gb",
                                           "\xEF\xBB\xBFmark",
                                           " outer / ",
                                           "..dots../a",
                                           "\xE2\x84\xAA/kelvin",
                                           "\xC3\x9F/SS"};

class Tree {
public:
    Tree() {
        for (const std::string file : files) {
            for (size_t at = file.find('/'); at != file.npos; at = file.find('/', at + 1)) {
                const std::string path = file.substr(0, at);
                std::filesystem::create_directory(m_folder.path() + '/' + path);
                add(path);
                m_folders.insert(path);
            }
            m_folder.write(file, "x");
            add(file);
        }
    }
    const std::string& path() const { return m_folder.path(); }

    // The path that a spelled name in a folder means; nothing if there is none.
    std::optional<std::string> pathOf(const std::string& folder, const std::string& spelled) const {
        const std::string exact = join(folder, spelled);
        if (m_paths.count(exact) != 0) return exact;
        const auto like = m_byFolded.find({folder, folded(spelled)});
        return like == m_byFolded.end() ? std::nullopt : std::optional(join(folder, like->second));
    }

    static std::string join(const std::string& folder, const std::string& name) {
        return folder.empty() ? name : folder + '/' + name;
    }

private:
    // Of several names that fold alike the smallest stays.
    void add(const std::string& path) {
        const size_t slash = path.rfind('/');
        const std::string name = slash == path.npos ? path : path.substr(slash + 1);
        std::string& known = m_byFolded[{slash == path.npos ? "" : path.substr(0, slash), folded(name)}];
        if (known.empty() || name < known) known = name;
        m_paths.insert(path);
    }
    static QString folded(const std::string& name) {
        return caseFolded(NativeText::fromNative(QByteArray::fromStdString(name)));
    }

    Scratch m_folder;
    std::set<std::string> m_paths;
    std::set<std::string> m_folders{""};
    std::map<std::pair<std::string, QString>, std::string> m_byFolded; // by folder and folded name
};

// The path below the top that a spelled one leads to, without empty and "." pieces.
std::string walk(const Tree& tree, const QByteArrayList& pieces) {
    std::string found;
    bool isLost = false;
    for (const QByteArray& piece : pieces) {
        if (piece.isEmpty() || piece == ".") continue;
        const auto next = isLost ? std::nullopt : tree.pathOf(found, piece.toStdString());
        isLost = isLost || !next;
        found = next.value_or(Tree::join(found, piece.toStdString()));
    }
    return found;
}

QString otherCase(QString text, int mask) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if ((mask >> i % 8 & 1) == 0) continue;
        QChar& c = text[i];
        c = c == QLatin1Char('/') ? QLatin1Char('\\') : c.isUpper() ? c.toLower() : c.toUpper();
    }
    return text;
}

// Without empty and "." pieces.
QByteArray plain(const QByteArray& path) {
    QByteArrayList pieces = path.split('/');
    pieces.removeIf([](const QByteArray& piece) { return piece.isEmpty() || piece == "."; });
    return pieces.join('/');
}
} // namespace

FUZZ_TARGET(paths) {
    static const Tree tree;
    static const bool isSpelled = !Paths::applicationFolder().endsWith(QLatin1Char('/'));
    require(isSpelled, "the program's own folder has no separator at its end");
    Input input(data, size);
    const auto number = static_cast<size_t>(input.byte()) % (files.size() + 1);
    const QString known = number < files.size() ? NativeText::fromNative(files[number]) : QString();
    const int mask = input.byte();
    const QString suffix = spelledPath(input.rest());
    const QString spelled = otherCase(known, mask) + suffix;
    const QString top = Paths::spelled(tree.path().c_str()) + QLatin1Char('\\');
    const QByteArray real = Paths::real(top + spelled);
    require(!real.contains('\0'), "a system call gets the whole path");
    QString slashed = spelled;
    slashed.replace(QLatin1Char('\\'), QLatin1Char('/')).replace(QChar(0), QLatin1Char('?'));
    const QByteArrayList pieces = NativeText::toNative(slashed).split('/');
    if (pieces.contains("..")) return 0; // outside the tree there is no list to compare with
    require(plain(real) == plain(QByteArray::fromStdString(tree.path() + '/' + walk(tree, pieces))),
            "each piece is found, in its own case or else in any");
    require(Paths::real(Paths::spelled(real)) == real || real.isEmpty(), "a real path leads to itself");
    return 0;
}

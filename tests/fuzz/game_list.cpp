// SPDX-License-Identifier: MIT
// The list of games over a folder of files with any names: which files it contains, in what order, and the
// text of each row, by a plain reading of the rules.
// Input: two patterns, and the kinds and names of the folder's content.
#include "Fuzz.h"
#include "NameReference.h"
#include "catalogue/GameRows.h"
#include "core/GameFilter.h"
#include "core/Pieces.h"
#include "platform/base/NamePattern.h"
#include "platform/base/NativeText.h"
#include "platform/base/RuntimeFailure.h"
#include "support/TagReference.h"

#include <fcntl.h>
#include <map>
#include <set>
#include <sys/stat.h>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr size_t mostNames = 6;

// A folder that is filled for one run.
class Library {
public:
    explicit Library(const std::string& path) : m_path(path) {}
    ~Library() {
        for (const std::string& name : m_names) std::remove((m_path + '/' + name).c_str());
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void add(int kind, std::string name) {
        for (char& c : name) c = c == '/' || c == '\0' ? '_' : c;
        if (name.empty() || name == "." || name == ".." || m_names.count(name) != 0) return;
        const std::string path = m_path + '/' + name;
        bool isMade = false;
        switch (kind % 16) {
        case 0: isMade = mkdir(path.c_str(), 0777) == 0; break;
        case 1: isMade = mkfifo(path.c_str(), 0666) == 0; break;
        case 2: isMade = symlink("/proc/self/exe", path.c_str()) == 0; break;
        case 3: isMade = symlink("/dev/null", path.c_str()) == 0; break;
        default: isMade = close(creat(path.c_str(), 0666)) == 0; break;
        }
        require(isMade, "a file can be made");
        m_names.insert(name);
        if (kind % 16 != 2 && kind % 16 <= 3) return;
        const QByteArray bytes = QByteArray::fromStdString(name);
        m_inOrder.insert({NativeText::toNative(caseFolded(NativeText::fromNative(bytes))), bytes});
    }

    // The names that a list shows, in order.
    std::vector<QByteArray> shown(const QString& pattern) const {
        const NamePattern wanted(pattern);
        std::vector<QByteArray> names;
        for (const auto& [key, name] : m_inOrder) {
            if (!name.startsWith('.') && wanted.matches(name)) names.push_back(name);
        }
        return names;
    }

private:
    std::string m_path;
    std::set<std::string> m_names;
    std::set<std::pair<QByteArray, QByteArray>> m_inOrder; // only files, by their case-folded names
};

using Table = std::shared_ptr<const FolderNames>;

void checkNames(const Table& table, const std::vector<QByteArray>& expected) {
    require(table->count() == static_cast<int>(expected.size()), "each file that matches is in the list");
    for (int i = 0; i < table->count(); ++i) {
        require(table->bytes(i) == expected[static_cast<size_t>(i)], "files are in order");
        require(NativeText::toNative(table->name(i)) == table->bytes(i), "a name is text");
    }
}

// The pieces of a name that is cut at every dot, or at the last one.
std::vector<std::string> piecesOf(const QByteArray& name, bool isWhole) {
    std::vector<std::string> pieces = reference::cut(name.toStdString(), ".");
    while (isWhole && pieces.size() > 2) {
        pieces[0] += '.' + pieces[1];
        pieces.erase(pieces.begin() + 1);
    }
    return pieces;
}

std::string secondOf(const QByteArray& name, bool isWhole) {
    const std::vector<std::string> pieces = piecesOf(name, isWhole);
    return pieces.size() > 1 ? pieces[1] : "";
}

NameCut cutOf(bool isWhole) { return NameCut::chosen(isWhole ? QStringLiteral("whole") : QString()); }

// A length for each "bin" file, or a failure.
qint64 lengthOf(const QString& name) {
    const qint64 lengths[] = {10, 1024000, 1024001, 2047999, 2048000, 2048001};
    if (name.size() % 7 == 6) throw RuntimeFailure(RuntimeFailure::fileNotFound);
    return lengths[name.size() % 7];
}

// The icon of a file, or -1 if its kind has none.
int iconOf(const QByteArray& name, bool isWhole) {
    static const std::map<std::string, int> icons = {{"zip", 4}, {"gb", 2},  {"gbc", 3},
                                                     {"cgb", 3}, {"gba", 1}, {"agb", 1}};
    const int binIcons[] = {-1, 1, 2, 2, -1, 3, -1};
    const std::string kind = secondOf(name, isWhole);
    if (kind == "bin") return binIcons[NativeText::fromNative(name).size() % 7];
    return icons.count(kind) != 0 ? icons.at(kind) : -1;
}

// As many whole characters as fit into 30 units.
QString rowText(const QByteArray& name, bool isWhole) {
    const std::string first = piecesOf(name, isWhole)[0];
    const QString text = NativeText::fromNative(QByteArray::fromStdString(first));
    qsizetype length = 0;
    for (qsizetype next = 0; next <= std::min<qsizetype>(text.size(), 30);) {
        length = next;
        next += next < text.size() && text[next].isHighSurrogate() ? 2 : 1;
    }
    return text.first(length);
}

void checkRows(const Table& table, const std::vector<QByteArray>& names, int count, bool isWhole) {
    const GameRows rows(table, count, lengthOf, cutOf(isWhole));
    require(rows.count() == std::min(count, static_cast<int>(names.size())), "as many rows as wanted");
    int icon = 0;
    for (int row = 0; row < rows.count(); ++row) {
        const QByteArray& name = names[static_cast<size_t>(row)];
        if (iconOf(name, isWhole) >= 0) icon = iconOf(name, isWhole);
        require(rows.icon(row) == icon, "a file without an icon takes that of the file in front");
        require(rows.text(row, 0) == rowText(name, isWhole), "a row shows the beginning of a name");
        const int found = rows.firstWith(rows.text(row, 0));
        require(found >= 0 && found <= row, "the text of a row finds it, or one before it");
    }
}

void checkFilter(const QByteArray& name, bool isWhole) {
    static const std::map<std::string, int> filters = {{"zip", 5}, {"gb", 4},  {"gba", 2}, {"gbc", 3},
                                                       {"bin", 2}, {"agb", 2}, {"cgb", 3}};
    const std::string second = secondOf(name, isWhole);
    const NameCut cut = cutOf(isWhole);
    const QString text = NativeText::fromNative(name);
    require(NativeText::toNative(cut.secondPiece(text)).toStdString() == second,
            "the second piece is the kind");
    require(gameFilterIndex(text, cut) == (filters.count(second) != 0 ? filters.at(second) : 1),
            "it has a filter");
    require(NativeText::toNative(cut.firstPiece(text)).toStdString() == piecesOf(name, isWhole)[0],
            "the first piece is the name");
}

void checkTotal(int count) {
    const QString text = totalText(count);
    require(count > 9999 ? text == QStringLiteral("+9999") : text.size() == 4 && text.toInt() == count,
            "a total has four digits, or says that it is larger");
}
} // namespace

FUZZ_TARGET(game_list) {
    static const Scratch folder;
    static const QString path = QString::fromStdString(folder.path());
    Input input(data, size);
    const QStringList patterns = {NativeText::fromNative(input.piece()),
                                  NativeText::fromNative(input.piece())};
    const int count = input.byte();
    Library library(folder.path());
    for (size_t i = 0; i < mostNames && !input.isEmpty(); ++i) {
        const int kind = input.byte();
        const QByteArray name = input.piece();
        for (const bool isWhole : {false, true}) checkFilter(name, isWhole);
        library.add(kind, name.toStdString());
    }
    const std::vector<Table> tables = FolderNames::read(path, patterns);
    const std::vector<QByteArray> first = library.shown(patterns[0]);
    const std::vector<QByteArray> second = library.shown(patterns[1]);
    checkNames(tables[0], first);
    checkNames(tables[1], second);
    require((tables[0] == tables[1]) == (first == second),
            "patterns that match the same names share a table");
    for (const bool isWhole : {false, true}) checkRows(tables[0], first, count, isWhole);
    checkTotal(count * 64 + tables[0]->count());
    return 0;
}

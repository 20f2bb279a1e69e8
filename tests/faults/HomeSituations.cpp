// SPDX-License-Identifier: MIT
// The trees, homes and records of both operations.
#include "HomeSituations.h"
#include "TagBytes.h"
#include "home/ContentSum.h"
#include "home/Home.h"
#include "home/LayOut.h"

namespace torvane::faults {

namespace {
constexpr qsizetype freshSize = 1500; // three blocks of a disk

class HomeMaker {
public:
    // A home that is not there lies below folders that aren't, either.
    HomeMaker(const Workshop& workshop, Standing standing, int count, bool isThere = true)
        : m_home(isThere ? "home/" : "user/share/home/"),
          m_folder(QByteArray::fromStdString(workshop.path(m_home)).chopped(1)), m_isThere(isThere),
          m_tree(QByteArray::fromStdString(workshop.path("tree"))), m_standing(standing), m_count(count) {
        m_index.version = "1.2";
        m_known.version = "1.1";
        m_done.version = "1.2";
    }

    Situation made() {
        m_made.operation = isUpdate() ? "home updated" : "home laid out";
        m_made.details = std::to_string(m_count) + " files" +
                         (isUpdate()  ? ", " + lengths()
                          : m_isThere ? ""
                                      : ", no home yet");
        m_made.isBatch = true;
        if (m_isThere) m_made.before[m_home + "roms/mine.gb"] = {"a game of the user's", {}};
        for (int i = 0; i < m_count; ++i) addFile(i);
        if (isUpdate()) addUsersOwn();
        m_made.before["tree/" + record] = {m_index.toBytes(), {}};
        if (isUpdate()) m_made.before[m_home + record] = {m_known.toBytes(), {}};
        m_made.asides[m_home + record] = {
            .meanwhile = {}, .afterNextStart = {m_done.toBytes()}, .isFreeMeanwhile = true};
        m_made.run = [folder = m_folder, tree = m_tree] { layOut(folder, tree); };
        m_made.resume = [folder = m_folder, tree = m_tree] {
            layOut(folder, tree);
            sweepHome(QString::fromUtf8(folder));
        };
        return m_made;
    }

private:
    inline static const std::string record = TreeRecord::file.toStdString();

    static void layOut(const QByteArray& folder, const QByteArray& tree) {
        const LayOut::Report report = LayOut(folder, SourceTree::recorded(tree)).run();
        if (!report.failures.empty()) throw RuntimeFailure(report.failures.front());
        if (!report.missing.isEmpty()) throw RuntimeFailure(RuntimeFailure::fileNotFound);
    }

    bool isUpdate() const { return m_standing != Standing::none; }
    std::string lengths() const {
        return m_standing == Standing::shorter  ? "longer than before"
               : m_standing == Standing::longer ? "shorter than before"
                                                : "as long as before";
    }
    qsizetype oldSize() const {
        return m_standing == Standing::shorter  ? freshSize / 2
               : m_standing == Standing::longer ? freshSize * 2
                                                : freshSize;
    }

    // In an update, every third file is new.
    void addFile(int i) {
        const std::string name = (i % 2 == 0 ? "data/file" : "data/site/file") + std::to_string(i);
        const QByteArray fresh = TagBytes::image(freshSize, static_cast<quint64>(20 + i));
        Content old;
        if (isUpdate() && i % 3 != 2) old = TagBytes::image(oldSize(), static_cast<quint64>(40 + i));
        addSource(name, fresh, old, fresh);
        if (old) m_made.before[m_home + name] = {*old, {}};
        if (i == 0) {
            m_made.subject = m_home + name;
            m_made.old = old;
            m_made.fresh = fresh;
        } else {
            m_made.asides[m_home + name] = {{old, fresh}, {fresh}, {fresh}};
        }
    }

    void addUsersOwn() {
        const QByteArray old = TagBytes::image(oldSize(), 60);
        for (const std::string name : {"data/changed", "data/deleted"}) {
            addSource(name, TagBytes::image(freshSize, 61), old, old);
        }
        m_made.before[m_home + "data/changed"] = {"the user's", Rights{.mode = 0600}};
    }

    void addSource(const std::string& name, const QByteArray& fresh, const Content& known,
                   const QByteArray& laidInTheEnd) {
        const QByteArray path = QByteArray::fromStdString(name);
        const QByteArray sum = ContentSum::of(fresh);
        m_made.before["tree/" + name] = {fresh, {}};
        m_index.files[path] = {sum, sum, fresh.size(), 0644};
        m_done.files[path] = {ContentSum::of(laidInTheEnd), sum, fresh.size(), 0644};
        if (!known) return;
        const QByteArray knownSum = ContentSum::of(*known);
        m_known.files[path] = {knownSum, knownSum, known->size(), 0644};
    }

    std::string m_home;
    QByteArray m_folder;
    bool m_isThere;
    QByteArray m_tree;
    Standing m_standing;
    int m_count;
    Situation m_made;
    TreeRecord m_index;
    TreeRecord m_known;
    TreeRecord m_done;
};
} // namespace

std::vector<Situation> homes(Workshop& workshop, const Standings& standings, bool isLarge) {
    std::vector<Situation> all;
    for (const Standing standing : standings) {
        all.push_back(HomeMaker(workshop, standing, isLarge ? 30 : 4).made());
    }
    if (!isLarge) all.push_back(HomeMaker(workshop, Standing::none, 1, false).made());
    return all;
}

} // namespace torvane::faults

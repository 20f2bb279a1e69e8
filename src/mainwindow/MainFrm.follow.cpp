// SPDX-License-Identifier: MIT
// The list follows what other programs do to the library. The user gets new rows and nothing else: the
// selected game, the place in the list and what is being typed stay.
#include "MainFrm.h"
#include "core/CompactWindow.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"
#include "platform/forms/RunningHandler.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <utility>

namespace torvane {

namespace {
constexpr int watchDelay = 300; // ms, enough for the first frame

// The state of the file at a real path; all zero if it can't be asked for.
struct stat stateOf(const QByteArray& path) {
    struct stat info {};
    if (stat(path.constData(), &info) != 0) info = {};
    return info;
}

// File systems give times in steps of up to two seconds: a change within the step of an earlier one leaves
// the time of a folder as it was.
bool isLatelyChanged(const struct stat& folder) {
    constexpr time_t coarsestStep = 2;
    return std::abs(std::time(nullptr) - folder.st_mtim.tv_sec) <= coarsestStep;
}

QByteArray nameAt(const FolderNames& names, int place) {
    return place >= 0 && place < names.count() ? names.bytes(place).toByteArray() : QByteArray();
}
} // namespace

// To be called before the library is read, so that no change is lost. The kernel looks at every known file of
// a folder when its watch begins, which the first frame of a large library must not wait for.
void MainFrm::watchLibrary() {
    if (m_isWatching) return m_watch.watch(Paths::real(Games.Path()));
    m_readFolder = stateOf(Paths::real(Games.Path()));
    // Not all zero: that is the state of a folder that has vanished.
    if (isLatelyChanged(m_readFolder)) m_readFolder.st_mtim = {};
    QTimer::singleShot(watchDelay, this, &MainFrm::beginWatching);
}

// Catches up with what has happened since the reading: games that came or went show in the folder's state.
void MainFrm::beginWatching() {
    if (isUnloaded()) return;
    m_isWatching = true;
    const QByteArray folder = Paths::real(Games.Path());
    m_watch.watch(folder);
    if (!isSameState(stateOf(folder), m_readFolder)) return m_watch.lookAgain(FolderWatch::usualQuiet);
    RunningHandler::whenNone(*this, [this] {
        if (!isUnloaded()) ignoring([this] { followPanels(); });
    });
}

// A handler may wait for a game, an answer, a download or a copy, and goes on with the list that it knows.
void MainFrm::libraryChanged() {
    if (std::exchange(m_isBehind, true)) return;
    RunningHandler::whenNone(*this, [this] {
        m_isBehind = false;
        if (!isUnloaded()) ignoring([this] { followLibrary(); });
    });
}

void MainFrm::followLibrary() {
    const WholeFiles::Tables shown = {Games.names(), File1.names()};
    const auto reading = WholeFiles::read(Games.Path(), {Games.Pattern(), File1.Pattern()}, shown);
    if (!reading.isComplete) m_watch.lookAgain(WholeFiles::restTime);
    if (reading.tables != shown) exchangeGames(reading.tables);
    followPanels();
}

void MainFrm::followPanels() {
    followSelected();
    m.compact.follow();
}

void MainFrm::exchangeGames(const WholeFiles::Tables& tables) {
    const auto rowsBefore = File1.names();
    const int placeBefore = Games.ListIndex();
    const int rowBefore = ListView1.currentRow();
    Games.take(tables.front());
    File1.take(tables.back());
    makeRows();
    Games.selectQuietly(placeOfSelected(placeBefore));
    const QByteArray marked = nameAt(*rowsBefore, rowBefore);
    const int row = rowBefore == placeBefore ? Games.ListIndex() : File1.names()->indexOf(marked);
    ListView1.exchangeItems(m_rows, row, topForSight(*rowsBefore));
    showPosition();
}

// By its name; else by the file, which may have got another name; else the game that is at its place now.
// What is being typed is for the vanished game alone: no game is selected then until that one is back.
int MainFrm::placeOfSelected(int before) const {
    const auto names = Games.names();
    const int byName = names->indexOf(m_panelGame);
    if (byName >= 0) return byName;
    const QByteArray folder = Paths::real(Games.Path()) + '/';
    for (int i = 0; m_panelFile.st_ino != 0 && i < names->count(); ++i) {
        if (isSameState(stateOf(folder + nameAt(*names, i)), m_panelFile)) return i;
    }
    return isEdited() ? -1 : std::min(std::max(before, 0), names->count() - 1);
}

// The first row in sight stays where it is. At the top of the list new rows may come above it.
int MainFrm::topForSight(const FolderNames& before) const {
    const int top = ListView1.seenTop();
    const int rowHeight = ListView1.rowHeight();
    for (int row = std::max(0, (-top + rowHeight - 1) / rowHeight); top < 0 && row < before.count(); ++row) {
        const int now = File1.names()->indexOf(before.bytes(row));
        if (now >= 0) return top - (now - row) * rowHeight;
    }
    return top;
}

// What the panel shows of a file that nobody has touched stays as it is.
void MainFrm::followSelected() {
    if (Games.FileName().isEmpty()) {
        if (Games.ListCount() > 0 || isEdited()) return;
        m_panelFile = {};
        showGame();
        return emptyPanel();
    }
    const bool isShown = NativeText::toNative(Games.FileName()) == m_panelGame;
    if (isShown && isSameState(stateOf(Paths::real(Games.filePath())), m_panelFile)) return;
    const QScopedValueRollback filling(m_filling, isEdited() ? Filling::none : Filling::changed);
    showSelected();
}

void MainFrm::noteSelected() {
    m_panelGame = NativeText::toNative(Games.FileName());
    m_panelFile = stateOf(Paths::real(Games.filePath()));
}

void MainFrm::fillFields(const QStringList& tag) {
    if (m_filling == Filling::none) return;
    const std::array<TextBox*, 3> fields = {&EditID3Title, &EditID3Company, &EditID3Info};
    for (size_t i = 0; i < fields.size(); ++i) {
        const QString& text = tag[static_cast<qsizetype>(i)];
        if (m_filling == Filling::all || fields[i]->Text() != text) fields[i]->setText(text);
    }
    m_filled = typedTag();
}

} // namespace torvane

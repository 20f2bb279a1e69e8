// SPDX-License-Identifier: MIT
// Reading, listing and launching.
#include "ZIP_Viewer.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"

#include <QElapsedTimer>
#include <algorithm>

namespace torvane {

namespace {
// In milliseconds, between two tries at an archive that has given nothing yet.
constexpr int firstPause = 50;
constexpr int longestPause = 1000;
} // namespace

ZIP_Viewer::ZIP_Viewer(const Services& services) : ZIP_ViewerDesign(services.runtime), m(services) {
    wire(ListView1, &RowList::rowClicked, &ZIP_Viewer::ListView1_Click);
    wire(ListView1, &RowList::rowDoubleClicked, &ZIP_Viewer::ListView1_DblClick);
    wire(File2, &FileList::Click, &ZIP_Viewer::File2_Click);
    wire(chameleonButton1, &chameleonButton::Click, &ZIP_Viewer::chameleonButton1_Click);
    wire(chameleonButton2, &chameleonButton::Click, &ZIP_Viewer::chameleonButton2_Click);
    UnZip1.engine.goesOn = [this] { return m_reading.goesOn(); };
    // The list covers the panel with what is known of a game, and the message lies over the list.
    ListView1.raise();
    Mensaje.raise();
}

void ZIP_Viewer::Load() {
    const Texts text(m.language, "ZIP");
    Label1.setCaption(m.globals.TitlePrefix + text("ziptitle"));
    Label2.setCaption(text("unzipping"));
    Label3.setCaption(text("reading"));
}

void ZIP_Viewer::ReadZIP(const QString& path, const QString& name) {
    const Hold hold(*this);
    if (!m_reading.run([&] { read(path, name); })) return;
    if (m_reading.isAskedToClose()) closeWindow();
}

void ZIP_Viewer::read(const QString& path, const QString& name) {
    Mensaje.setVisible(true);
    pumpEvents();
    pumpEvents();
    readUntilListed(path, name);
    Mensaje.setVisible(false);
    ListView1.setFocus();
    ZipName = name;
}

// Retries for ever: an archive that is still being copied appears once it is complete.
void ZIP_Viewer::readUntilListed(const QString& path, const QString& name) {
    for (int between = firstPause; !m_reading.isAskedToClose() && ListView1.rowCount() < 1;
         between = std::min(2 * between, longestPause)) {
        QElapsedTimer attempt;
        attempt.start();
        m_temp.ExtractZipToTemp(UnZip1.engine, path, name);
        if (!m_reading.goesOn()) return;
        ListZipMembers(name);
        pumpEvents();
        // A large archive without a member for the list must not keep a processor busy either.
        if (ListView1.rowCount() > 0) return;
        m_reading.pause(std::max(between, static_cast<int>(attempt.elapsed())));
    }
}

void ZIP_Viewer::ListZipMembers(const QString& name) {
    File2.setPath(m_temp.isOurs(name) ? m_temp.folderOf(name) : QString());
    if (File2.ListCount() == 0) return;
    const auto members = std::make_shared<ZipMembers>(File2.names());
    ListView1.setItems(members);
    if (members->hasPlayable()) blankPanel();
    File2.selectQuietly(members->count() - 1);
}

// Tags of members are not read: selecting one clears the panel.
void ZIP_Viewer::blankPanel() {
    for (Label* label : {&GameTitle, &GameAutor, &GameDate, &GameInfo}) label->setCaption(QString());
    GameFormat.setCaption(QStringLiteral("[KB]"));
}

void ZIP_Viewer::File2_Click() {
    if (!isPlayable(File2.FileName())) return;
    pumpEvents();
    if (!isUnloaded()) blankPanel();
}

void ZIP_Viewer::ListView1_Click() { File2.setListIndex(ListView1.currentRow()); }

void ZIP_Viewer::ListView1_DblClick() {
    ListView1_Click();
    pumpEvents();
    if (isUnloaded() || !isPlayable(File2.FileName())) return;
    setWindowStateWord(minimised);
    pumpEvents();
    if (isUnloaded()) return;
    m.shell.play(m.emulators.EmulatorCommand, File2.filePath());
    setWindowStateWord(normal);
}

// A reading ends first: only then can what it has unpacked be removed.
void ZIP_Viewer::chameleonButton1_Click() {
    m_reading.askToClose();
    if (!m_reading.isOn()) closeWindow();
}

void ZIP_Viewer::closeWindow() {
    pumpEvents();
    if (isUnloaded()) return;
    Unload();
    m_temp.DeleteTemp(ZipName);
}

} // namespace torvane

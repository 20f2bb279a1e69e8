// SPDX-License-Identifier: MIT
// Reads and lists an archive, and launches its members.
#include "ZIP_Viewer.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "platform/base/NativeText.h"
#include "platform/forms/HeldInput.h"

#include <QElapsedTimer>
#include <algorithm>

namespace torvane {

namespace {
// The pauses in ms between two attempts at an archive that has listed nothing yet.
constexpr int firstPause = 50;
constexpr int longestPause = 1000;

// The key of a reason's text, and the text for language files that lack the key.
struct ReasonText {
    const char* key;
    const char* fallback;
};

ReasonText textOf(UnZip::Reason reason) {
    switch (reason) {
    case UnZip::Reason::none: return {"reading", ""};
    case UnZip::Reason::nothingWanted: return {"nogame", "No game inside"};
    case UnZip::Reason::inSubfolders: return {"subfolders", "Its games lie in subfolders"};
    case UnZip::Reason::noRoom: return {"noroom", "No room to unpack it"};
    case UnZip::Reason::encrypted: return {"encrypted", "The ZIP is encrypted"};
    case UnZip::Reason::unknownMethod: return {"method", "Unknown compression"};
    case UnZip::Reason::damaged: return {"damaged", "Damaged or unreadable ZIP"};
    }
    return {"reading", ""};
}
} // namespace

ZIP_Viewer::ZIP_Viewer(const Services& services) : ZIP_ViewerDesign(services.runtime), m(services) {
    wire(ListView1, &RowList::rowClicked, &ZIP_Viewer::ListView1_Click);
    wire(ListView1, &RowList::rowDoubleClicked, &ZIP_Viewer::ListView1_DblClick);
    wire(File2, &FileList::Click, &ZIP_Viewer::File2_Click);
    wire(chameleonButton1, &chameleonButton::Click, &ZIP_Viewer::chameleonButton1_Click);
    wire(chameleonButton2, &chameleonButton::Click, &ZIP_Viewer::chameleonButton2_Click);
    UnZip1.engine.goesOn = [this] { return m_reading.goesOn(); };
    // The list covers the game panel, and the wait message covers the list.
    ListView1.raise();
    Mensaje.raise();
}

void ZIP_Viewer::Load() {
    const Texts text(m.language, "ZIP");
    Label1.setCaption(m.globals.TitlePrefix + text("ziptitle"));
    Label2.setCaption(text("unzipping"));
    showReason(UnZip::Reason::none);
}

void ZIP_Viewer::showReason(UnZip::Reason reason) {
    const auto [key, fallback] = textOf(reason);
    Label3.setCaption(Texts(m.language, "ZIP")(key, QString::fromUtf8(fallback)));
}

void ZIP_Viewer::ReadZIP(const QString& path, const QString& name) {
    const Hold hold(*this);
    if (!m_reading.run([&] { read(path, name); })) return;
    if (m_reading.isAskedToClose()) closeWindow();
}

void ZIP_Viewer::read(const QString& path, const QString& name) {
    if (!ZipName.isEmpty() && ZipName != name) discardArchive();
    m_isFailureReported = false;
    Mensaje.setVisible(true);
    pumpEvents();
    pumpEvents();
    readUntilListed(path, name);
    Mensaje.setVisible(false);
    ListView1.setFocus();
    ZipName = name;
}

// The compact window stays on screen beside this one, and may open another archive in it.
void ZIP_Viewer::discardArchive() {
    m_temp.DeleteTemp(ZipName);
    ZipName.clear();
    File2.setPath(QString());
    ListView1.Clear();
    m_members.reset();
}

// Retries for ever: an archive that is still being copied appears once it is complete.
void ZIP_Viewer::readUntilListed(const QString& path, const QString& name) {
    for (int pause = firstPause; !m_reading.isAskedToClose() && ListView1.rowCount() < 1;
         pause = std::min(2 * pause, longestPause)) {
        QElapsedTimer attempt;
        attempt.start();
        const UnZip::Reason reason = m_temp.ExtractZipToTemp(UnZip1.engine, path, name);
        if (!m_reading.goesOn()) return;
        ListZipMembers(name);
        const bool isListed = ListView1.rowCount() > 0;
        showReason(isListed ? UnZip::Reason::none : reason);
        pumpEvents();
        if (isListed) return;
        // Rest at least as long as the attempt took: a large archive must not keep a processor busy.
        m_reading.pause(std::max(pause, static_cast<int>(attempt.elapsed())));
    }
}

void ZIP_Viewer::ListZipMembers(const QString& name) {
    File2.setPath(m_temp.isOurs(name) ? m_temp.folderOf(name) : QString());
    if (File2.ListCount() == 0) return;
    m_members = std::make_shared<ZipMembers>(File2.names(), m.globals.names);
    ListView1.setItems(m_members);
    if (m_members->hasPlayable()) blankPanel();
    File2.selectQuietly(File2.ListCount() - 1);
    if (std::exchange(m_isFailureReported, true)) return;
    // One box per archive, however many members or attempts fail.
    m.runtime.reporting([this] { m_members->requireAllListed(); });
}

// Tags of members are not read: selecting one clears the panel.
void ZIP_Viewer::blankPanel() {
    for (Label* label : {&GameTitle, &GameAutor, &GameDate, &GameInfo}) label->setCaption(QString());
    GameFormat.setCaption(QStringLiteral("[KB]"));
}

void ZIP_Viewer::File2_Click() {
    if (!isGameSelected()) return;
    pumpEvents();
    if (!isUnloaded()) blankPanel();
}

bool ZIP_Viewer::isGameSelected() const {
    return isPlayable(NativeText::toNative(File2.FileName()), m.globals.names);
}

void ZIP_Viewer::ListView1_Click() {
    if (m_members) File2.setListIndex(m_members->position(ListView1.currentRow()));
}

void ZIP_Viewer::ListView1_DblClick() {
    ListView1_Click();
    pumpEvents();
    if (isUnloaded() || !isGameSelected()) return;
    setWindowStateWord(minimised);
    pumpEvents();
    if (isUnloaded()) return;
    m.shell.play(m.emulators.EmulatorCommand, File2.filePath());
    // A double click made meanwhile would start the game again.
    HeldInput::dropWaiting();
    setWindowStateWord(normal);
}

// A running read must end first: only then can its unpacked files be deleted.
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

// SPDX-License-Identifier: MIT
// Reading, listing and launching.
#include "ZIP_Viewer.h"

#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTimer>
#include <algorithm>

namespace torvane {

namespace {
// In milliseconds, between two tries at an archive that has given nothing yet.
constexpr int firstPause = 50;
constexpr int longestPause = 1000;
} // namespace

ZIP_Viewer::ZIP_Viewer(const ZIP_ViewerParts& parts) : ZIP_ViewerDesign(parts.runtime), m(parts) {
    wire(ListView1, &RowList::rowClicked, this, &ZIP_Viewer::ListView1_Click);
    wire(ListView1, &RowList::rowDoubleClicked, this, &ZIP_Viewer::ListView1_DblClick);
    wire(File2, &FileList::Click, this, &ZIP_Viewer::File2_Click);
    wire(chameleonButton1, &chameleonButton::Click, this, &ZIP_Viewer::chameleonButton1_Click);
    wire(chameleonButton2, &chameleonButton::Click, this, &ZIP_Viewer::chameleonButton2_Click);
    UnZip1.engine.goesOn = [this] {
        pumpEvents();
        return !m_isToClose;
    };
    // The list covers the panel with what is known of a game, and the message lies over the list.
    ListView1.raise();
    Mensaje.raise();
}

QString ZIP_Viewer::text(const char* key) const {
    return m.language.LangText(QStringLiteral("ZIP"), QString::fromLatin1(key));
}

void ZIP_Viewer::Load() {
    Label1.setCaption(m.globals.TitlePrefix + text("ziptitle"));
    Label2.setCaption(text("unzipping"));
    Label3.setCaption(text("reading"));
}

void ZIP_Viewer::ReadZIP(const QString& path, const QString& name) {
    if (m_isReading) return;
    const Hold hold(*this);
    {
        m_isReading = true;
        const auto ended = qScopeGuard([this] { m_isReading = false; });
        m.desk.go(Window::MainFrm, Window::ZIP_Viewer);
        Mensaje.setVisible(true);
        pumpEvents();
        pumpEvents();
        readUntilListed(path, name);
    }
    Mensaje.setVisible(false);
    ListView1.setFocus();
    ZipName = name;
    if (m_isToClose) closeWindow();
}

// There is no giving up: an archive that is still being copied, or repaired meanwhile, shows itself in the
// end.
void ZIP_Viewer::readUntilListed(const QString& path, const QString& name) {
    for (int between = firstPause; !m_isToClose && ListView1.rowCount() < 1;
         between = std::min(2 * between, longestPause)) {
        QElapsedTimer attempt;
        attempt.start();
        m_temp.ExtractZipToTemp(UnZip1.engine, path, name);
        pumpEvents();
        if (m_isToClose) return;
        ListZipMembers(name);
        pumpEvents();
        // A large archive without a member for the list must not keep a processor busy either.
        if (ListView1.rowCount() < 1) pause(std::max(between, static_cast<int>(attempt.elapsed())));
    }
}

void ZIP_Viewer::pause(int milliseconds) {
    if (m_isToClose) return;
    QTimer::singleShot(milliseconds, &m_pause, &QEventLoop::quit);
    m_pause.exec();
}

void ZIP_Viewer::ListZipMembers(const QString& name) {
    File2.setPath(m_temp.isOurs(name) ? m_temp.folderOf(name) : QString());
    if (File2.ListCount() == 0) return;
    const auto members = std::make_shared<ZipMembers>(File2.names());
    ListView1.setItems(members);
    if (members->hasPlayable()) blankPanel();
    File2.selectQuietly(members->count() - 1);
}

// Members are not asked for their tags: as soon as a game was the current one, what is shown of it is
// nothing.
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
    m.shell.RunAndWait(m.emulators.EmulatorCommand + QLatin1Char(' ') + File2.filePath());
    setWindowStateWord(normal);
}

// While an archive is being read, the reading ends first: what it has left behind can only then be removed.
void ZIP_Viewer::chameleonButton1_Click() {
    m_isToClose = true;
    m_pause.quit();
    if (!m_isReading) closeWindow();
}

void ZIP_Viewer::closeWindow() {
    pumpEvents();
    if (isUnloaded()) return;
    Unload();
    m.desk.bringBackMainWindow();
    m_temp.DeleteTemp(ZipName);
}

} // namespace torvane

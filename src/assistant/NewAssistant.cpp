// SPDX-License-Identifier: MIT
// The pages of the assistant and the ways between them.
#include "NewAssistant.h"
#include "platform/base/File.h"
#include "toolkit/InputWords.h"

#include <QScopeGuard>

namespace torvane {

namespace {
const QString filter =
    QStringLiteral("Juegos de GameBoy|*.gba;*.gbc;*.gb;*.agb;*.cgb;*.zip;*.bin|Todos los Archivos|*.*");

// Pixels. In every language the two answers of a question are its fourth and fifth line, and stand at the hot
// areas with this distance alone, whatever the lines of the font that stands in for the design's.
constexpr int linePitch = 22;

QString bareName(const QString& path) {
    const auto isSeparator = [](QChar c) { return c == QLatin1Char('\\') || c == QLatin1Char('/'); };
    qsizetype start = path.size();
    while (start > 0 && !isSeparator(path[start - 1])) --start;
    return path.sliced(start);
}
} // namespace

NewAssistant::NewAssistant(const NewAssistantParts& parts) : NewAssistantDesign(parts.runtime), m(parts) {
    wireControls();
    Label2.setTwin(Label1);
    Label1.setLinePitch(linePitch);
    takeDrops();
    const QCursor hand =
        InputWords::handCursor(InputWords::handIcon(InputWords::Hand::overLink, devicePixelRatioF()));
    for (Label* area : {&AddFile, &AddDir, &ChameleonButton5, &ChameleonButton6}) {
        area->setCursor(hand);
        area->setVisible(false);
    }
    // The one holds the text, the other one shows it.
    Label2.setVisible(false);
    FilePath.setVisible(false);
    Browse.setVisible(false);
}

void NewAssistant::wireControls() {
    wire(ChameleonButton2, &chameleonButton::Click, this, &NewAssistant::ChameleonButton2_Click);
    wire(chameleonButton1, &chameleonButton::Click, this, &NewAssistant::chameleonButton1_Click);
    wire(chameleonButton3, &chameleonButton::Click, this, &NewAssistant::chameleonButton3_Click);
    wire(Browse, &chameleonButton::Click, this, &NewAssistant::Browse_Click);
    wire(File1, &FileList::Click, this, &NewAssistant::File1_Click);
    wire(AddFile, &Label::Click, this, &NewAssistant::AddFile_Click);
    wire(AddDir, &Label::Click, this, &NewAssistant::AddDir_Click);
    // An original that can't be deleted is told; the question stays, and can be answered otherwise.
    wire(ChameleonButton5, &Label::Click, this, &NewAssistant::ChameleonButton5_Click, Failure::told);
    wire(ChameleonButton6, &Label::Click, this, &NewAssistant::ChameleonButton6_Click);
    wire(Timer1, &Timer::Tick, this, &NewAssistant::Timer1_Tick);
    connect(this, &Form::pathDropped, this, [this](const QString& path) {
        const Hold hold(*this);
        runtime().guarded([&] { take(path); });
    });
}

QString NewAssistant::text(const char* key) const {
    return m.language.LangText(QStringLiteral("Assistant"), QString::fromLatin1(key));
}

QString NewAssistant::pageText(const char* first, const char* second, const char* third) const {
    return text(first) + QStringLiteral("\r\n\r\n  ") + text(second) + QStringLiteral("\r\n  ") + text(third);
}

void NewAssistant::Load() {
    ShowDialog(text("f1"));
    Page = 1;
    chameleonButton1.setCaption(text("next"));
    chameleonButton3.setCaption(text("first"));
    Browse.setCaption(text("browse"));
    ChameleonButton2.setCaption(text("exit"));
    chameleonButton4.setCaption(m.globals.TitlePrefix);
}

void NewAssistant::onUnload() {
    Timer1.setEnabled(false);
    m.desk.gamesAdded();
}

void NewAssistant::chameleonButton1_Click() {
    if (m_isBusy) return;
    switch (Page) {
    case 1: showChoice(); break;
    case 2: FromFolder == 1 ? showQuestion("f5b") : addFile(); break;
    default: Unload(); break;
    }
}

void NewAssistant::showChoice() {
    ShowDialog(pageText("f2", "f3", "f4"));
    Page = 2;
    chameleonButton1.setEnabled(false);
    AddFile.setVisible(true);
    AddDir.setVisible(true);
    setPicture(Two.Picture());
    FilePath.setVisible(false);
    Browse.setVisible(false);
}

void NewAssistant::showQuestion(const char* firstKey) {
    FilePath.setVisible(false);
    Browse.setVisible(false);
    AddFile.setVisible(false);
    AddDir.setVisible(false);
    setPicture(Three.Picture());
    ShowDialog(pageText(firstKey, "f6", "f7"));
    chameleonButton3.setEnabled(false);
    chameleonButton1.setEnabled(false);
    ChameleonButton5.setVisible(true);
    ChameleonButton6.setVisible(true);
}

void NewAssistant::showFailure() {
    setPicture(Four.Picture());
    ShowDialog(text("f8"));
}

// A single file

// The area is disabled and never enabled again: who goes back finds it dead until the window is opened anew.
void NewAssistant::AddFile_Click() {
    if (m_isBusy) return;
    ShowDialog(text("f12"));
    AddFile.setEnabled(false);
    AddDir.setVisible(false);
    setPicture(Two.Picture());
    FilePath.setVisible(true);
    Browse.setVisible(true);
    FromFolder = 0;
    chameleonButton1.setEnabled(true);
}

void NewAssistant::Browse_Click() {
    if (m_isBusy) return;
    const QString path = Dlg.ShowOpen({text("f14"), filter, 1, {}});
    if (!isUnloaded()) choose(path);
}

void NewAssistant::choose(const QString& path) {
    m_chosen = path;
    if (path.isEmpty() || path == QStringLiteral(" ")) {
        showFailure();
    } else {
        FilePath.setText(path);
    }
}

void NewAssistant::addFile() {
    SetFileAttributes(m_chosen);
    const bool isCopied = ignoring([this] { copyFile(); });
    if (m_isToLeave) {
        Unload();
    } else if (isCopied) {
        showQuestion("f5");
    } else {
        showFailure();
    }
}

void NewAssistant::copyFile() {
    m_isBusy = true;
    const auto ended = qScopeGuard([this] { m_isBusy = false; });
    m_adding.begin(pumpEvents);
    const bool isOther = m_adding.AddRomToLibrary(m_chosen, bareName(m_chosen));
    m_adding.finish();
    pumpEvents();
    if (!isOther) throw RuntimeFailure(RuntimeFailure::permissionDenied);
}

// The games of a folder

void NewAssistant::AddDir_Click() {
    if (m_isBusy) return;
    const QString folder = Dlg.ShowFolder({text("f12"), QStringLiteral("Todos los archivos|*.*"), 1, {}});
    if (!folder.isEmpty() && !isUnloaded()) addFolder(folder);
}

void NewAssistant::addFolder(const QString& folder) {
    copyFolder(folder);
    if (m_isToLeave) {
        Unload();
        return;
    }
    Page = 2;
    FromFolder = 1;
    chameleonButton1_Click();
}

// The text that a file dialog would stand on in the chosen folder ends the folder, wherever it occurs first.
void NewAssistant::copyFolder(const QString& folder) {
    m_isBusy = true;
    const auto ended = qScopeGuard([this] { m_isBusy = false; });
    File1.setPath(folderInFront(folder + QLatin1Char('\\') + text("f13"), text("f13")));
    pumpEvents();
    m_adding.begin(pumpEvents);
    for (int i = 0; i < File1.ListCount() && !m_isToLeave; ++i) {
        File1.setListIndex(i);
        m_adding.AddRomToLibrary(File1.filePath(), File1.FileName());
    }
    m_adding.finish();
    pumpEvents();
}

void NewAssistant::File1_Click() {
    Pista.setScaleWidth(File1.ListCount());
    barra.setWidth(Pista.pixels(File1.ListIndex()));
}

// The originals, and the end

void NewAssistant::ChameleonButton5_Click() {
    if (m_isBusy) return;
    const char* told = "f9";
    if (FromFolder == 1) {
        const bool isAnyGone = m_adding.deleteSources() > 0 || File1.ListCount() == 0;
        File1.Refresh();
        pumpEvents();
        told = isAnyGone ? "f10" : "f11";
    } else if (!m_adding.deleteSource(FilePath.Text())) {
        told = "f11";
    }
    if (isUnloaded()) return;
    ShowDialog(text(told));
    finishPages();
}

void NewAssistant::ChameleonButton6_Click() {
    if (m_isBusy) return;
    ShowDialog(text("f11"));
    finishPages();
}

void NewAssistant::finishPages() {
    chameleonButton1.setCaption(text("finish"));
    chameleonButton1.setEnabled(true);
    chameleonButton3.setEnabled(true);
    ChameleonButton5.setVisible(false);
    ChameleonButton6.setVisible(false);
    Page = 3;
}

void NewAssistant::chameleonButton3_Click() {
    if (m_isBusy) return;
    Page = 1;
    chameleonButton1_Click();
    chameleonButton1.setEnabled(false);
    chameleonButton1.setCaption(text("next"));
}

// While games are being copied the window goes from sight at once, and for good behind the current file.
void NewAssistant::ChameleonButton2_Click() {
    m_isToLeave = true;
    if (m_isBusy) {
        Hide();
    } else {
        Unload();
    }
}

void NewAssistant::take(const QString& path) {
    if (m_isBusy || isUnloaded()) return;
    if (!ChameleonButton5.isHidden()) ChameleonButton6_Click();
    chameleonButton3_Click();
    if (File::isFolder(path)) {
        addFolder(path);
    } else {
        AddFile_Click();
        choose(path);
    }
}

} // namespace torvane

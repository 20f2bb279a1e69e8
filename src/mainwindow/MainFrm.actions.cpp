// SPDX-License-Identifier: MIT
// What the main window's buttons do: tags, copies, deletions, launches.
#include "MainFrm.h"
#include "catalogue/TagInput.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/Hosts.h"
#include "core/Pages.h"
#include "core/SettingValues.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "platform/forms/HeldInput.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace torvane {

namespace {
constexpr OleColour activeTab = 49152;
constexpr OleColour inactiveTab = 8421504;
} // namespace

void MainFrm::Edit_Menu_Click() {
    Picture1_1.setVisible(true);
    Picture1_0.setVisible(false);
    Label17.setCaption(heading(mainMenu("editid3")));
    Edit_Menu.setForeColor(activeTab);
    ID3_Menu.setForeColor(inactiveTab);
}

void MainFrm::ID3_Menu_Click() {
    Picture1_0.setVisible(true);
    Picture1_1.setVisible(false);
    Label17.setCaption(heading(QStringLiteral("ROM.TAG Info")));
    ID3_Menu.setForeColor(activeTab);
    Edit_Menu.setForeColor(inactiveTab);
}

void MainFrm::emptyIfMissing(TextBox& field) {
    if (field.Text().isEmpty()) return;
    if (field.Text() == general("nodisp")) {
        field.setText(QString());
    }
}

void MainFrm::EditID3Title_Change() {
    emptyIfMissing(EditID3Title);
    ignoring([this] { warnIfTooLong(); });
}

void MainFrm::EditID3Info_Change() {
    emptyIfMissing(EditID3Info);
    Label2.setCaption(QString::number(TagInput::longestInfo - EditID3Info.Text().size()));
    ignoring([this] { warnIfTooLong(); });
}

void MainFrm::saveTag() {
    const QString title = EditID3Title.Text();
    const QString company = EditID3Company.Text();
    const QString info = EditID3Info.Text();
    if (title.isEmpty() || company.isEmpty() || info.isEmpty()) {
        m.runtime.messages.MsgBox(
            QStringLiteral("Hay datos ROM.TAG incompletos.\r\nThere are ROM.TAG data incomplete."),
            MsgBoxFlags::information, QStringLiteral("Error"));
        return;
    }
    const QString path = Games.filePath();
    warnIfTooLong();
    m.id3.NewDate = TagInput::todayAsText();
    m.id3.NewCompany = company;
    m.id3.NewTitle = title;
    m.id3.NewInfo = info;
    m.id3.SaveRomTag(path, pumpEvents);
    m.runtime.messages.MsgBox(QStringLiteral("TAG Completado"));
    // The other face must not keep showing the old tag. The fields keep what was saved also where the reader
    // does not find it: in small files, and if the line is too long. The save served events: by now another
    // game may be selected, whose fields are its own.
    Games_Click();
    if (Games.filePath() != path) return;
    setTypedTag({title, company, info});
}

// What the fields of the editing face hold: title, company, information.
QStringList MainFrm::typedTag() const {
    return {EditID3Title.Text(), EditID3Company.Text(), EditID3Info.Text()};
}

void MainFrm::setTypedTag(const QStringList& tag) {
    EditID3Title.setText(tag[0]);
    EditID3Company.setText(tag[1]);
    EditID3Info.setText(tag[2]);
}

void MainFrm::tagChanged(const QString& path) {
    if (Games.FileName().isEmpty() || Paths::real(Games.filePath()) != Paths::real(path)) return;
    const QScopedValueRollback filling(m_filling, isEdited() ? Filling::none : Filling::all);
    Games_Click();
}

void MainFrm::warnIfTooLong() {
    const QString& title = EditID3Title.Text();
    const QString& company = EditID3Company.Text();
    const QString& info = EditID3Info.Text();
    // Tags are rarely so long: a selection asks no file.
    constexpr qsizetype alwaysFits = 900;
    if (Games.FileName().isEmpty() || title.size() + company.size() + info.size() < alwaysFits) return;
    if (TagInput::isTooLongToRead(title, company, info, File::lengthOf(Games.filePath()))) {
        hint(mainMenu("toolong", QStringLiteral("Too long to show")));
    }
}

void MainFrm::deleteTag() {
    const int index = Games.ListIndex();
    if (index < 0 || !m.id3.HasRomTag(Games.filePath())) return;
    ID3::StripRomTag(Games.filePath());
    Refresh_Click();
    pumpEvents();
    selectGame(index);
    Games_Click();
}

void MainFrm::copyGame() {
    if (!Games.FileName().isEmpty()) m.funciones.CopyRom(Games.filePath(), Games.FileName());
}

void MainFrm::deleteGame() {
    if (Games.FileName().isEmpty()) return;
    const QString question = general("suretodelete");
    const int answer = m.runtime.messages.MsgBox(question, MsgBoxFlags::question | MsgBoxFlags::yesNo,
                                                 QStringLiteral("Torvane..."));
    if (answer != MsgBoxFlags::answerYes) return;
    File::remove(Games.filePath());
    GetGameList(QString(), QString());
    m.desk.go(id, id);
}

void MainFrm::Label15_Click() {
    const auto zipSetting = [this] { return NumberSetting(m.runtime.settings, "zip", 0).value(); };
    const LaunchWay way = ShellAndClose::launchWay(Games.FileName(), m.globals.names, zipSetting);
    switch (way) {
    case LaunchWay::nothing: break;
    case LaunchWay::zipViewer: Zipper_Click(); break;
    case LaunchWay::straight: play(); break;
    case LaunchWay::withMinimising: {
        const State before = windowStateWord();
        setWindowStateWord(minimised);
        pumpEvents();
        play();
        setWindowStateWord(before == minimised ? normal : before);
        break;
    }
    }
}

// What the user has tried meanwhile is dropped: it would start the next game, say.
void MainFrm::play() {
    m.shell.play(m.emulators.EmulatorCommand, Games.filePath());
    HeldInput::dropWaiting();
}

void MainFrm::OpenSearchWeb() {
    URL_Linker.setURL(m.hosts.address(Pages::searchStart));
    URL_Linker.UserClick();
}

void MainFrm::Zipper_Click() {
    if (!Games.FileName().isEmpty()) m.desk.go(id, Window::ZIP_Viewer, {Games.filePath(), Games.FileName()});
}

void MainFrm::addGames(const QString& path) { m.desk.go(id, Window::NewAssistant, {path}); }

// A page up or down. From places between the pages, where wheel and keys lead, the upper end is the limit.
void MainFrm::scrollUp() {
    if (ListView1.seenTop() >= -3) return;
    ListView1.setTop(std::min(ListView1.seenTop() + Picture2.height(), qRound(ListView1.designRect().top)));
}

void MainFrm::scrollDown() {
    const int limit = Picture2.height() - ListView1.Height() + ListView1.rowHeight();
    if (limit < ListView1.seenTop()) ListView1.setTop(ListView1.seenTop() - Picture2.height());
}

void MainFrm::askForExit() {
    m.desk.go(id, Window::TorvMsg, {mainMenu("suretoend"), QStringLiteral("exit"), QString()});
}

// The window manager's close asks the same question, once.
void MainFrm::queryUnload() {
    if (isEnabled()) askForExit();
}

void MainFrm::hint(const QString& text) {
    Label13.setCaption(heading(text));
    displayer.setEnabled(true);
}

void MainFrm::displayer_Tick() {
    Label13.setCaption(heading(mainMenu("gamelist")));
    displayer.setEnabled(false);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The desk: the table of ways between windows, the start and the end.
#include "TorvaneDesk.h"
#include "Program.h"

#include <algorithm>
#include <array>

namespace torvane {

namespace {
enum class Opening {
    hidesOpener,   ///< the opener is hidden; the opened one brings it back when it closes
    ownedByOpener, ///< the opener stays, and the opened window stands above it
};

struct Way {
    Window from;
    Window to;
    Opening opening;
};

constexpr std::array ways = {
    Way{Window::MainFrm, Window::NewAssistant, Opening::ownedByOpener},
    Way{Window::MainFrm, Window::EditDB, Opening::hidesOpener},
    Way{Window::MainFrm, Window::Compartir, Opening::hidesOpener},
    Way{Window::MainFrm, Window::Aboutfrm, Opening::hidesOpener},
    Way{Window::MainFrm, Window::SearchROM, Opening::ownedByOpener},
    Way{Window::MainFrm, Window::URL, Opening::hidesOpener},
    Way{Window::MainFrm, Window::ConfigNew, Opening::ownedByOpener},
    Way{Window::MainFrm, Window::Torvette, Opening::hidesOpener},
    Way{Window::MainFrm, Window::AdvSearch, Opening::ownedByOpener},
    Way{Window::MainFrm, Window::ZIP_Viewer, Opening::hidesOpener},
};
} // namespace

// The other windows are not part of the program yet; their rows wait in the table.
Form* TorvaneDesk::form(Window window) {
    switch (window) {
    case Window::SelLangStartUp: return &m_program.selLangStartUp.get();
    case Window::Splash: return &m_program.splash.get();
    case Window::MainFrm: return &m_program.mainFrm.get();
    case Window::Menuing: return &m_program.menuing.get();
    case Window::TorvMsg: return &m_program.torvMsg.get();
    case Window::NewAssistant: return &m_program.newAssistant.get();
    case Window::ZIP_Viewer: return &m_program.zipViewer.get();
    default: return nullptr;
    }
}

Form* TorvaneDesk::formIfLoaded(Window window) const {
    return window == Window::MainFrm ? m_program.mainFrm.ifLoaded() : nullptr;
}

bool TorvaneDesk::exists(Window window) const {
    switch (window) {
    case Window::SelLangStartUp:
    case Window::Splash:
    case Window::MainFrm:
    case Window::Menuing:
    case Window::TorvMsg:
    case Window::NewAssistant:
    case Window::ZIP_Viewer: return true;
    default: return false;
    }
}

void TorvaneDesk::go(Window from, Window to) {
    const auto* way = std::find_if(ways.begin(), ways.end(),
                                   [&](const Way& row) { return row.from == from && row.to == to; });
    if (way == ways.end() || !exists(to)) return;
    Form* opener = formIfLoaded(from);
    if (opener != nullptr && way->opening == Opening::hidesOpener) opener->Hide();
    form(to)->Show(way->opening == Opening::ownedByOpener ? opener : nullptr);
}

void TorvaneDesk::startApplication() {
    Globals& globals = m_program.globals;
    globals.VersionText = QStringLiteral("1.1");
    globals.TitlePrefix = QStringLiteral("Torvane ") + globals.VersionText + QStringLiteral(" » ");
    globals.LanguageFile = m_program.runtime.settings.GetSetting(
        Config::application, Config::section, QStringLiteral("Language"),
        globals.AppPath + QStringLiteral("\\data\\lang\\lang_esp.tvl"));
    pumpEvents();
    globals.LanguageName =
        m_program.language.LangText(QStringLiteral("FileInfo"), QStringLiteral("langname"));
    if (numberSetting("Intro", "1") != 0) {
        form(Window::Splash)->Show();
        return;
    }
    const Window first = firstWindow();
    Form* window = form(first);
    if (first == Window::MainFrm) m_program.mainFrm.get().selectGame(0);
    window->Show();
}

void TorvaneDesk::introEnded() {
    m_program.mainFrm.get().selectGame(0);
    const Window first = firstWindow();
    // The compact window shows itself before the intro goes, the main window after it.
    if (first == Window::Torvette) form(first)->Show();
    m_program.splash.unload();
    if (first == Window::MainFrm) form(first)->Show();
}

Window TorvaneDesk::firstWindow() const {
    const bool compact = numberSetting("Start", "0") == 1;
    return compact && exists(Window::Torvette) ? Window::Torvette : Window::MainFrm;
}

int TorvaneDesk::numberSetting(const char* key, const char* absent) const {
    return Settings::toNumber(m_program.runtime.settings.GetSetting(
        Config::application, Config::section, QString::fromLatin1(key), QString::fromLatin1(absent)));
}

void TorvaneDesk::openArchive(const QString& path, const QString& name) {
    m_program.zipViewer.get().ReadZIP(path, name);
}

void TorvaneDesk::bringBackMainWindow() {
    const Form* compact = formIfLoaded(Window::Torvette);
    if (compact == nullptr || !compact->isVisible()) form(Window::MainFrm)->Show();
}

void TorvaneDesk::addGames(const QString& path) {
    go(Window::MainFrm, Window::NewAssistant);
    m_program.newAssistant.get().take(path);
}

void TorvaneDesk::gamesAdded() {
    MainFrm* window = m_program.mainFrm.ifLoaded();
    if (window == nullptr) return;
    window->File1.Refresh();
    window->Games.Refresh();
    window->Refresh_Click();
}

void TorvaneDesk::reopenMainWindow() {
    m_program.mainFrm.unload();
    form(Window::MainFrm)->Show();
    // The assistant stays above the window that is there now.
    NewAssistant* assistant = m_program.newAssistant.ifLoaded();
    if (assistant != nullptr && assistant->isVisible()) go(Window::MainFrm, Window::NewAssistant);
}

void TorvaneDesk::makeMSG(const QString& message, const QString& action, const QString& data) {
    m_program.torvMsg.get().MakeMSG(message, action, data);
}

Form* TorvaneDesk::visibleMainWindow() const {
    Form* window = formIfLoaded(Window::MainFrm);
    return window != nullptr && window->isVisible() ? window : nullptr;
}

void TorvaneDesk::disableMainWindow() {
    if (Form* window = formIfLoaded(Window::MainFrm)) window->setEnabled(false);
}

void TorvaneDesk::enableVisibleMainWindow() {
    if (Form* window = visibleMainWindow()) window->setEnabled(true);
}

void TorvaneDesk::endProgram() { m_program.runtime.end(); }

} // namespace torvane

// SPDX-License-Identifier: MIT
// The desk: the table of ways between windows, the start and the end.
#include "TorvaneDesk.h"
#include "Program.h"
#include "core/LanguageChoice.h"
#include "core/SettingValues.h"
#include "core/Texts.h"

#include <algorithm>

namespace torvane {

namespace {
enum class Opening {
    replacesMain, ///< the main window is hidden
    replacesFace, ///< the main or the compact window is hidden, whichever is on screen
    aboveOpener,  ///< the opener stays on screen and owns the opened window
    aboveFace,    ///< the same with what is on screen instead of the opener
    heldByOpener, ///< the same, and the opened window goes when its opener goes
    anew,         ///< the window unloads if it is there, and loads again; the way back stays
};

/// Which window is shown after the opened one has unloaded.
enum class Return {
    nobody,
    mainWindow,
    replaced,          ///< the window that it has replaced
    mainUnlessCompact, ///< the main window, but not while the compact one is on screen
};
} // namespace

struct Way {
    Window from;
    Window to;
    Opening opening;
    Return comesBack;
};

namespace {
static_assert(Windows::count == windowCount, "a window is missing in Windows.h");

constexpr std::array ways = {
    Way{Window::MainFrm, Window::NewAssistant, Opening::aboveOpener, Return::nobody},
    Way{Window::MainFrm, Window::TorvMsg, Opening::aboveOpener, Return::nobody},
    Way{Window::MainFrm, Window::EditDB, Opening::replacesMain, Return::mainWindow},
    Way{Window::MainFrm, Window::Compartir, Opening::replacesMain, Return::mainWindow},
    Way{Window::MainFrm, Window::Aboutfrm, Opening::replacesMain, Return::mainWindow},
    Way{Window::MainFrm, Window::SearchROM, Opening::aboveOpener, Return::nobody},
    Way{Window::MainFrm, Window::URL, Opening::replacesMain, Return::mainWindow},
    Way{Window::MainFrm, Window::ConfigNew, Opening::aboveOpener, Return::nobody},
    Way{Window::MainFrm, Window::Torvette, Opening::replacesMain, Return::mainWindow},
    Way{Window::MainFrm, Window::AdvSearch, Opening::aboveOpener, Return::nobody},
    Way{Window::MainFrm, Window::ZIP_Viewer, Opening::replacesMain, Return::mainUnlessCompact},
    Way{Window::MainFrm, Window::MainFrm, Opening::anew, Return::nobody},
    Way{Window::Torvette, Window::AdvSearch, Opening::aboveOpener, Return::nobody},
    Way{Window::Torvette, Window::NewAssistant, Opening::aboveOpener, Return::nobody},
    Way{Window::Menuing, Window::Torvette, Opening::replacesMain, Return::mainWindow},
    Way{Window::Menuing, Window::EditDB, Opening::replacesFace, Return::replaced},
    Way{Window::Menuing, Window::Compartir, Opening::replacesFace, Return::replaced},
    Way{Window::Menuing, Window::Aboutfrm, Opening::replacesFace, Return::replaced},
    Way{Window::Menuing, Window::TorvMsg, Opening::aboveFace, Return::nobody},
    Way{Window::EditDB, Window::DB_Info, Opening::heldByOpener, Return::nobody},
    Way{Window::EditDB, Window::Form2, Opening::heldByOpener, Return::nobody},
    Way{Window::ConfigNew, Window::NewAssistant, Opening::aboveOpener, Return::nobody},
    Way{Window::ConfigNew, Window::ConfGen, Opening::aboveOpener, Return::nobody},
    Way{Window::ConfigNew, Window::SelLang, Opening::aboveOpener, Return::nobody},
    Way{Window::Compartir, Window::AmpliCaptura, Opening::heldByOpener, Return::nobody},
    Way{Window::Compartir, Window::Compartir, Opening::anew, Return::mainWindow},
    Way{Window::URL, Window::AddPersonalWeb, Opening::heldByOpener, Return::nobody},
    Way{Window::URL, Window::URL, Opening::anew, Return::mainWindow},
    Way{Window::AddPersonalWeb, Window::URL, Opening::anew, Return::mainWindow},
};

constexpr bool isAboveOpener(const Way& way) {
    return way.opening == Opening::aboveOpener || way.opening == Opening::heldByOpener;
}

// The start opens these by itself.
constexpr std::array startWindows = {Window::Menuing, Window::SelLangStartUp, Window::Splash,
                                     Window::MainFrm};

constexpr bool isReached(Window window) {
    return std::find(startWindows.begin(), startWindows.end(), window) != startWindows.end() ||
           std::any_of(ways.begin(), ways.end(), [&](const Way& way) { return way.to == window; });
}

constexpr bool areAllReached() {
    bool result = true;
    Windows::forEach([&]<typename W>() { result = result && isReached(W::id); });
    return result;
}
static_assert(areAllReached(), "a window of Windows.h has no row in the table of ways");

const Way* wayBetween(Window from, Window to) {
    const auto* way = std::find_if(ways.begin(), ways.end(),
                                   [&](const Way& row) { return row.from == from && row.to == to; });
    return way == ways.end() ? nullptr : way;
}

constexpr size_t placeOf(Window window) { return static_cast<size_t>(window); }
} // namespace

void TorvaneDesk::go(Window from, Window to, const QStringList& subject) {
    const Way* way = wayBetween(from, to);
    if (way == nullptr) return;
    if (open(*way)) m_program.windows.take(to, subject);
}

bool TorvaneDesk::open(const Way& way) {
    Windows& windows = m_program.windows;
    const Way* cameBy = &way;
    if (way.opening == Opening::anew) {
        // Without a way the window leaves without bringing anyone back.
        if (const Way* first = std::exchange(m_cameBy[placeOf(way.to)], nullptr)) cameBy = first;
        windows.unload(way.to);
    }
    makeRoom(way);
    m_cameBy[placeOf(way.to)] = cameBy;
    const bool isNew = windows.ifLoaded(way.to) == nullptr;
    Form* opened = windows.load(way.to);
    if (opened == nullptr) return false;
    Form* owner = ownerFor(way);
    // One that showed itself during its load, which may have taken a while, must not come to the front again.
    const bool hasShownItself = isNew && owner == nullptr && opened->isVisible();
    if (!hasShownItself) opened->Show(owner);
    if (way.opening == Opening::anew) raiseOwned(way.to);
    return true;
}

void TorvaneDesk::makeRoom(const Way& way) {
    if (way.opening != Opening::replacesMain && way.opening != Opening::replacesFace) return;
    ForegroundWindows& foreground = m_program.foreground;
    const Window face = way.opening == Opening::replacesFace ? foreground.face() : Window::MainFrm;
    m_replaced[placeOf(way.to)] = face;
    foreground.hide(face);
}

Form* TorvaneDesk::ownerFor(const Way& way) const {
    if (way.opening == Opening::aboveFace) return m_program.foreground.frontWindow();
    return isAboveOpener(way) ? m_program.windows.ifLoaded(way.from) : nullptr;
}

bool TorvaneDesk::isReplaced() const {
    return std::any_of(ways.begin(), ways.end(), [this](const Way& way) {
        const bool replaces = way.opening == Opening::replacesMain || way.opening == Opening::replacesFace;
        if (!replaces || way.to == Window::Torvette || m_cameBy[placeOf(way.to)] != &way) return false;
        const Form* window = m_program.windows.ifLoaded(way.to);
        return window != nullptr && window->isVisible();
    });
}

// A window manager forgets an owner that is hidden, and takes notice of it only when an owned window appears.
void TorvaneDesk::raiseOwned(Window owner) {
    Windows& windows = m_program.windows;
    for (const Way& way : ways) {
        if (way.from != owner || m_cameBy[placeOf(way.to)] != &way) continue;
        Form* owned = windows.ifLoaded(way.to);
        if (!isAboveOpener(way) || owned == nullptr || !owned->isVisible()) continue;
        owned->Hide();
        owned->Show(windows.ifLoaded(owner));
        raiseOwned(way.to);
    }
}

void TorvaneDesk::unloadHeld(Window opener) {
    for (const Way& way : ways) {
        const bool isHeld = way.opening == Opening::heldByOpener && way.from == opener;
        if (isHeld && m_cameBy[placeOf(way.to)] == &way) m_program.windows.unload(way.to);
    }
}

void TorvaneDesk::unloaded(Window window) {
    unloadHeld(window);
    const Way* way = std::exchange(m_cameBy[placeOf(window)], nullptr);
    if (way == nullptr) return;
    if (way->comesBack == Return::nobody) {
        handOver(window, way->from, Heir::opener);
        if (Form* opener = m_program.windows.ifLoaded(way->from)) opener->takeFocusOfClosed();
        return;
    }
    ForegroundWindows& foreground = m_program.foreground;
    const bool staysCompact =
        way->comesBack == Return::mainUnlessCompact && foreground.face() == Window::Torvette;
    const Window back = way->comesBack == Return::replaced ? m_replaced[placeOf(window)]
                        : staysCompact                     ? Window::Torvette
                                                           : Window::MainFrm;
    if (!staysCompact) foreground.show(back);
    handOver(window, back, Heir::face);
    raiseOwned(back);
}

// Without an owner they could get lost among the windows of other programs: they have no place in the task
// bar.
void TorvaneDesk::handOver(Window owner, Window heir, Heir kind) {
    Windows& windows = m_program.windows;
    for (const Way& way : ways) {
        const Way*& cameBy = m_cameBy[placeOf(way.to)];
        const bool isOfFace = kind == Heir::face && way.opening == Opening::aboveFace;
        const bool isOwned = way.from == owner ? isAboveOpener(way) : isOfFace;
        if (!isOwned || cameBy != &way) continue;
        if (const Way* ofHeir = wayBetween(heir, way.to)) cameBy = ofHeir;
        Form* owned = windows.ifLoaded(way.to);
        if (owned != nullptr && owned->isVisible()) owned->Show(windows.ifLoaded(heir));
    }
}

void TorvaneDesk::startApplication() {
    Globals& globals = m_program.globals;
    globals.setVersion(QStringLiteral(TORVANE_VERSION));
    const LanguageChoice choice(m_program.runtime.settings, globals);
    globals.LanguageFile = choice.file();
    // Without any file that can be read the texts are empty, and the program runs.
    if (globals.LanguageFile.isEmpty()) globals.LanguageFile = choice.stored();
    if (choice.isFirst()) globals.LanguageFile = choice.folder() + QStringLiteral("lang_esp.tvl");
    pumpEvents();
    globals.LanguageName = Texts(m_program.language, "FileInfo")("langname");
    if (NumberSetting(m_program.runtime.settings, "Intro", 1).value() != 0) {
        if (Form* intro = m_program.windows.load(Window::Splash)) intro->Show();
        return;
    }
    const Window first = firstWindow();
    Form* window = loadFirst(first);
    if (first == Window::MainFrm) selectFirstGame();
    if (window != nullptr) window->Show();
}

void TorvaneDesk::introEnded() {
    Windows& windows = m_program.windows;
    windows.load(Window::MainFrm);
    selectFirstGame();
    const Window first = firstWindow();
    Form* window = loadFirst(first);
    // The compact window shows itself before the intro goes, the main window after it.
    if (first == Window::Torvette && window != nullptr) window->Show();
    windows.unload(Window::Splash);
    if (first == Window::MainFrm && window != nullptr) window->Show();
}

void TorvaneDesk::selectFirstGame() {
    if (MainFrm* window = m_program.loaded<MainFrm>()) window->selectGame(0);
}

// The compact window leads to the main one, as if it had been opened from there.
Form* TorvaneDesk::loadFirst(Window first) {
    if (first == Window::Torvette) m_cameBy[placeOf(first)] = wayBetween(Window::MainFrm, first);
    return m_program.windows.load(first);
}

Window TorvaneDesk::firstWindow() const {
    const bool compact = NumberSetting(m_program.runtime.settings, "Start", 0).value() == 1;
    return compact ? Window::Torvette : Window::MainFrm;
}

void TorvaneDesk::endProgram() { m_program.runtime.end(); }

} // namespace torvane

// SPDX-License-Identifier: MIT
// The names of all windows. A window asks the desk for another one by its name and never includes it.
#pragma once

namespace torvane {

/// All windows, in the order of the window catalogue.
enum class Window {
    MainFrm,
    Torvette,
    Compartir,
    URL,
    EditDB,
    ZIP_Viewer,
    ConfigNew,
    Splash,
    Menuing,
    Aboutfrm,
    AddPersonalWeb,
    AmpliCaptura,
    TorvMsg,
    DB_Info,
    Form2,
    SearchROM,
    AdvSearch,
    ConfGen,
    NewAssistant,
    SelLangStartUp,
    SelLang,
};
constexpr int windowCount = static_cast<int>(Window::SelLang) + 1;

} // namespace torvane

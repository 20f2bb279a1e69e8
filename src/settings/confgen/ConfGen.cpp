// SPDX-License-Identifier: MIT
// The controls of the general options, and the folder of the screenshots.
#include "ConfGen.h"
#include "core/CompactWindow.h"
#include "core/Globals.h"
#include "core/SettingValues.h"
#include "core/TraySign.h"
#include "platform/base/Paths.h"
#include "settings/FolderChoice.h"

#include <QDir>
#include <QFile>
#include <QSignalBlocker>
#include <array>

namespace torvane {

namespace {
const QString noFolder = QStringLiteral("No hay seleccionado. Por favor, elige uno para usar esta utilidad.");

TextSetting chosenFolder(Settings& settings, const QString& absent) { return {settings, "Capturas", absent}; }

QString homeFolder() { return Paths::spelled(QFile::encodeName(QDir::homePath())); }

// By the numbers of the colours.
std::array<OptionButton*, 7> coloursOf(ConfGenDesign& window) {
    return {&window.Option1_0, &window.Option1_1, &window.Option1_2, &window.Option1_3,
            &window.Option1_4, &window.Option1_5, &window.Option1_6};
}
} // namespace

ConfGen::ConfGen(const Services& services)
    : ConfGenDesign(services.runtime), m(services), m_options(services.runtime.settings) {
    wireControls();
}

void ConfGen::wireControls() {
    using Options = GeneralOptions;
    for (int number = 0; OptionButton * colour : coloursOf(*this)) {
        wireOption(*colour, Options::colour, number++, &ConfGen::changeTrayPicture);
    }
    wireOption(Option2_0, Options::corner, 0, &ConfGen::moveCompactWindow);
    wireOption(Option2_1, Options::corner, 1, &ConfGen::moveCompactWindow);
    wireBox(Check1, Options::tray, &ConfGen::showTrayIcon);
    wireBox(Check2, Options::onTop); // the compact window takes this one when it is loaded next
    wireBox(Check3, Options::intro);
    wireBox(Check4, Options::compact);
    wireBox(Check6, Options::archives);
    wire(ChameleonButton2, &chameleonButton::Click, &ConfGen::ChameleonButton2_Click);
    wire(ChameleonButton17, &chameleonButton::Click, &ConfGen::ChameleonButton17_Click, Failure::reported);
    for (chameleonButton* close : {&chameleonButton1, &ChameleonButton3}) {
        wire(*close, &chameleonButton::Click, [this] { Unload(); });
    }
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
}

void ConfGen::wireOption(OptionButton& button, const GeneralOption& option, int value, Effect effect) {
    wire(
        button, &OptionButton::Click, [this, &option, value, effect] { store(option, value, effect); },
        Failure::reported);
}

void ConfGen::wireBox(CheckBox& box, const GeneralOption& option, Effect effect) {
    wire(
        box, &CheckBox::Click, [this, &box, &option, effect] { store(option, box.Value(), effect); },
        Failure::reported);
}

void ConfGen::Load() {
    setCaptions();
    showOptions();
    m.runtime.reporting([this] { m_options.storeAll(); });
    m.runtime.reporting([this] { changeTrayPicture(); });
    showTrayIcon();
    m.runtime.reporting([this] { moveCompactWindow(); });
}

void ConfGen::setCaptions() {
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    Check1.setCaption(text("activateagent"));
    Label5.setCaption(text("agentcolor"));
    Option1_0.setCaption(text("color1"));
    Option1_1.setCaption(text("color2"));
    Option1_2.setCaption(text("color3"));
    Option1_3.setCaption(text("color4"));
    Option1_4.setCaption(text("color5"));
    Option1_5.setCaption(text("color6"));
    Option1_6.setCaption(text("color7"));
    Label4.setCaption(text("ss"));
    ChameleonButton2.setCaption(text("showselected"));
    ChameleonButton17.setCaption(text("select"));
    Label7.setCaption(text("torvettepos"));
    Option2_0.setCaption(text("leftup"));
    Option2_1.setCaption(text("rightup"));
    Check2.setCaption(text("alwaysontop"));
    Check3.setCaption(text("intro"));
    Check4.setCaption(text("ministartup"));
    Check6.setCaption(text("zipwindow"));
    ChameleonButton3.setCaption(text("close"));
}

// Nothing is stored by this: a value that was set is no use of the control.
void ConfGen::showOptions() {
    using Options = GeneralOptions;
    const auto quietly = [](auto& control, auto value) {
        const QSignalBlocker blocker(control);
        control.setValue(value);
    };
    OptionButton* const corners[] = {&Option2_0, &Option2_1};
    quietly(*coloursOf(*this)[m_options.value(Options::colour)], true);
    quietly(*corners[m_options.value(Options::corner)], true);
    quietly(Check1, m_options.value(Options::tray));
    quietly(Check2, m_options.value(Options::onTop));
    quietly(Check3, m_options.value(Options::intro));
    quietly(Check4, m_options.value(Options::compact));
    quietly(Check6, m_options.value(Options::archives));
}

// The controls never show what is not stored: if the store refuses a value they go back to the old one, and
// nothing else changes.
void ConfGen::store(const GeneralOption& option, int value, Effect effect) {
    try {
        m_options.set(option, value);
    } catch (const RuntimeFailure&) {
        showOptions();
        throw;
    }
    if (effect != nullptr) (this->*effect)();
}

void ConfGen::changeTrayPicture() {
    const QString number = QString::number(m_options.value(GeneralOptions::colour));
    m.tray.setTrayPicture(TraySign::pictureFile(m.globals, number));
}

void ConfGen::showTrayIcon() { m.tray.setTrayShown(m_options.value(GeneralOptions::tray) != 0); }

void ConfGen::moveCompactWindow() { m.compact.takeCorner(); }

// This title is the same in every version, and the words for no folder in every language.
void ConfGen::ChameleonButton2_Click() {
    m.runtime.messages.MsgBox(FolderChoice::shown(chosenFolder(m.runtime.settings, noFolder).value()),
                              MsgBoxFlags::information, QStringLiteral("Torvane 1.1"));
}

// A dialog that fails is opened once more. One that fails again is reported: it would fail for ever.
void ConfGen::ChameleonButton17_Click() {
    QString path;
    if (!ignoring([&] { path = askForFolder(); })) path = askForFolder();
    if (path.isEmpty()) return;
    chosenFolder(m.runtime.settings, {}).set(FolderChoice::folderOf(path));
}

// Empty if the user has cancelled: then the folder stays as it is stored, even if none is.
QString ConfGen::askForFolder() {
    const QString folder = chosenFolder(m.runtime.settings, QStringLiteral("C:\\")).value();
    return Dlg.ShowSave({.title = QStringLiteral("Selecciona Directorio"),
                         .filter = {},
                         .fileName = FolderChoice::proposal(folder, homeFolder()),
                         .isForFolder = true});
}

} // namespace torvane

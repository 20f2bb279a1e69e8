// SPDX-License-Identifier: MIT
// The general options. Each control stores its option as soon as it is used, and what acts on something in
// sight acts at once: the tray icon, and the place of the compact window.
#pragma once

#include "ConfGen.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "settings/GeneralOptions.h"

#include <QShortcut>

namespace torvane {

class ConfGen : public ConfGenDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::ConfGen;

    explicit ConfGen(const Services& services);

    /// Shows the stored options, stores those that were not, and puts them into effect. Runs once after
    /// construction. What fails is reported, and the window opens all the same.
    void Load();

private:
    /// What a stored option changes at once, if anything.
    using Effect = void (ConfGen::*)();

    void wireControls();
    void wireOption(OptionButton& button, const GeneralOption& option, int value, Effect effect);
    void wireBox(CheckBox& box, const GeneralOption& option, Effect effect = nullptr);
    void setCaptions();
    void showOptions();
    void store(const GeneralOption& option, int value, Effect effect);
    void changeTrayPicture();
    void showTrayIcon();
    void moveCompactWindow();
    void ChameleonButton2_Click();
    void ChameleonButton17_Click();
    QString askForFolder();

    const Services& m;
    const Texts text{m.language, "Config"};
    const GeneralOptions m_options;
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

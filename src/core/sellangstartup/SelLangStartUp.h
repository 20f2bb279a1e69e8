// SPDX-License-Identifier: MIT
// The first window: asks for the language at the first start, and closes itself at once at later ones.
#pragma once

#include "SelLangStartUp.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "toolkit/Typewriter.h"

namespace torvane {

class SelLangStartUp : public SelLangStartUpDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::SelLangStartUp;

    explicit SelLangStartUp(const Services& services);

    /// Starts to type the text, one character per tick, replacing what was typed before.
    void ShowDialog(const QString& text);
    /// Makes the three languages white and lets them be chosen again.
    void TurnToWhite();

    /// Runs once after construction.
    void Load();

protected:
    /// Closing the window by the window manager ends the program: no other window is open.
    void queryUnload() override;

private:
    void wireControls();
    void chooseLanguage(Label& label, const QString& code, const QString& question);
    void Label4_Click();
    void Label5_Click();
    void Label6_Click();
    void no_Click();
    void ok_Click();
    void Timer1_Tick();
    void Timer2_Tick();
    void setAnswersVisible(bool visible);
    QString thanks() const;

    const Services& m;
    Typewriter m_typewriter{Label7, Timer1};
    QString ChosenLanguage;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The intro: a shaped window with a movie that stands until a key or a click.
#pragma once

#include "Desk.h"
#include "Globals.h"
#include "Splash.design.h"

namespace torvane {

class Splash : public SplashDesign {
    Q_OBJECT

public:
    Splash(Runtime& runtime, Desk& desk, const Globals& globals);

    /// Runs once after construction.
    void Load();

protected:
    /// Closing the window by the window manager leaves nothing behind: the program ends.
    void queryUnload() override { m_desk.endProgram(); }
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Timer1_Tick();
    void Flash_ReadyStateChange();
    void Picture1_KeyPressed(int keyCode);
    void keyHandler(int keyCode, int shift);
    void mouseHandler(int button, int shift, int x, int y);

    Desk& m_desk;
    const Globals& m_globals;
};

} // namespace torvane

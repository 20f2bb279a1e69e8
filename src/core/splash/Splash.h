// SPDX-License-Identifier: MIT
// The intro: a shaped window with a movie, until a key or a click.
#pragma once

#include "Splash.design.h"
#include "core/Services.h"
#include "core/Window.h"

namespace torvane {

class Splash : public SplashDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Splash;

    explicit Splash(const Services& services);

    /// Runs once after construction.
    void Load();

protected:
    /// Closing the window by the window manager ends the program: no other window is open.
    void queryUnload() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Timer1_Tick();
    void Flash_ReadyStateChange();
    void Picture1_KeyPressed(int keyCode);
    void keyHandler(int keyCode, int shift);
    void mouseHandler(int button, int shift, int x, int y);

    const Services& m;
};

} // namespace torvane

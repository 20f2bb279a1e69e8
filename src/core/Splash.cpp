// SPDX-License-Identifier: MIT
// The intro and its end.
#include "Splash.h"
#include "toolkit/Shaper.h"

#include <QKeyEvent>

namespace torvane {

Splash::Splash(Runtime& runtime, Desk& desk, const Globals& globals)
    : SplashDesign(runtime), m_desk(desk), m_globals(globals) {
    wire(Timer1, &Timer::Tick, this, &Splash::Timer1_Tick);
    wire(Flash, &MoviePlayer::readyStateChanged, this, &Splash::Flash_ReadyStateChange);
    connect(&Picture1, &Panel::keyPressed, this,
            [this](int keyCode) { this->runtime().guarded([&] { Picture1_KeyPressed(keyCode); }); });
    Picture1.setFocusPolicy(Qt::StrongFocus);
    // A click on the movie is a click in the window.
    Flash.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Splash::Load() {
    ShapeForm(*this);
    DragForm(*this);
    Flash.setMovie(m_globals.AppPath + QStringLiteral("\\data\\intro.dat"));
    Flash.Play();
}

// Keys shall reach the window and not the player. The window does not take the focus from other programs.
void Splash::Timer1_Tick() {
    if (isActiveWindow() && !Picture1.hasFocus()) setFocus();
}

void Splash::Flash_ReadyStateChange() { Picture1.setFocus(); }

void Splash::Picture1_KeyPressed(int keyCode) { keyHandler(keyCode, 1); }

void Splash::keyPressEvent(QKeyEvent* event) {
    runtime().guarded(
        [&] { keyHandler(event->key(), static_cast<int>(event->modifiers() != Qt::NoModifier)); });
}

void Splash::mousePressEvent(QMouseEvent* event) {
    runtime().guarded([&] {
        mouseHandler(event->button(), 0, event->position().toPoint().x(), event->position().toPoint().y());
    });
}

void Splash::keyHandler(int keyCode, int shift) { mouseHandler(keyCode, shift, 0, 0); }

// Any key and any button will do.
void Splash::mouseHandler(int, int, int, int) { m_desk.introEnded(); }

} // namespace torvane

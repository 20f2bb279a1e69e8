// SPDX-License-Identifier: MIT
// The intro and its end.
#include "Splash.h"
#include "core/Desk.h"
#include "core/Globals.h"
#include "toolkit/Shaper.h"

#include <QKeyEvent>

namespace torvane {

Splash::Splash(const Services& services) : SplashDesign(services.runtime), m(services) {
    wire(Timer1, &Timer::Tick, &Splash::Timer1_Tick);
    wire(Flash, &MoviePlayer::readyStateChanged, &Splash::Flash_ReadyStateChange);
    wire(Picture1, &Panel::keyPressed, &Splash::Picture1_KeyPressed);
    Picture1.setFocusPolicy(Qt::StrongFocus);
    // A click on the movie is a click in the window.
    Flash.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Splash::queryUnload() { m.desk.endProgram(); }

void Splash::Load() {
    ShapeForm(*this);
    DragForm(*this);
    Flash.setMovie(m.globals.AppPath + QStringLiteral("\\data\\intro.dat"));
    Flash.Play();
}

// Keys must reach the window and not the player. Takes no focus away from other programs.
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
void Splash::mouseHandler(int, int, int, int) { m.desk.introEnded(); }

} // namespace torvane

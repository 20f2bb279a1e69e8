// SPDX-License-Identifier: MIT
// What a desktop says of a start by the user, so that the window which he expects gets the focus: window
// managers keep it from programs that ask by themselves.
#pragma once

#include <QByteArray>

class QWidget;

namespace torvane {

struct StartupNotice {
    QByteArray id;    ///< on X11 (DESKTOP_STARTUP_ID); empty if the start has none
    QByteArray token; ///< on Wayland (XDG_ACTIVATION_TOKEN); empty if the start has none

    /// Gives the focus to a window of this process in the name of a start whose own process shows none, and
    /// ends the notice that the desktop shows meanwhile. On X11 the user is taken to the virtual desktop that
    /// the window is on. Works without either word, too, where the window
    /// manager takes such requests. Does nothing on other platforms.
    void answerWith(QWidget& window) const;
};

} // namespace torvane

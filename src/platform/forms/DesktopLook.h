// SPDX-License-Identifier: MIT
// The colours and signs of what the program does not paint itself: message boxes, file dialogs, menus, scroll
// bars, tool tips.
#pragma once

#include "Colours.h"

namespace torvane {

/// A few colours from which all parts of Qt's own dialogs are derived, and the signs of message boxes.
struct DesktopLook {
    OleColour ground = 0;    ///< of boxes and dialogs
    OleColour button = 0;    ///< of push buttons, scroll bars and headings
    OleColour field = 0;     ///< behind texts that are typed or chosen
    OleColour text = 0;      ///< on all of these
    OleColour selection = 0; ///< behind the selected text, whose letters keep their colour
    OleColour faint = 0;     ///< texts of what can't be used, and hints in empty fields
    /// Pictures of message boxes: a file name with "%1" for information, question, warning or critical. Those
    /// of Qt are taken for what is not there.
    const char* signs = "";
};

/// Gives the whole application that look, whatever the desktop's own theme is: a light box over dark windows
/// dazzles. To be called after the application object is made and before its first window.
void applyDesktopLook(const DesktopLook& look);

} // namespace torvane

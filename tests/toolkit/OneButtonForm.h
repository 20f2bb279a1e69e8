// SPDX-License-Identifier: MIT
// One skinned button on a window that is not shown yet, and what the tests put on it.
#pragma once

#include "PanelForm.h"
#include "toolkit/chameleonButton.h"

#include <QPixmap>

namespace torvane {

constexpr OleColour face = 0x644D4E;
constexpr OleColour faceHighlight = 0x937C7D;

struct OneButtonForm : PanelForm {
    chameleonButton button{
        *this,
        "chameleonButton1",
        {20, 20, 100, 30},
        {.type = 7, .back = face, .backOver = 0x808080, .fore = Colours::white, .caption = "&Salir"}};

    QImage picture() { return button.grab().toImage(); }
};

/// A picture of one colour.
inline QPixmap filled(int width, int height, QColor colour) {
    QPixmap picture(width, height);
    picture.fill(colour);
    return picture;
}

} // namespace torvane

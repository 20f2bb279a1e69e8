// SPDX-License-Identifier: MIT
// What the sheet of skinned buttons shows: groups of rows, each row one button in six states. The golden
// test, the sharpness test and the sheet program all read it here; none of them is known here.
#pragma once

#include "toolkit/chameleonButton.h"

#include <QStringList>
#include <vector>

namespace torvane {

/// The columns of every group. Pressed is pressed with the mouse, which is then over the button, too;
/// checked is checkbox mode with its value true: the pressed look without the mouse.
enum class ButtonState { normal, over, pressed, disabled, focused, checked };
constexpr int stateCount = 6;
/// The column's heading, such as "over".
QString nameOf(ButtonState state);

/// A button of the sheet but for its state.
struct ButtonSetup {
    chameleonButton::Look look;
    QSize size{68, 26};
    int colorScheme = 2;
    int picturePosition = 0;
    int picture = 0;             ///< edge of the drawn picture in pixels; 0 for none
    bool changesPicture = false; ///< another picture under the mouse
    bool useMaskColor = true;
    bool isDefault = false;
    bool keepsFocus = false; ///< has the focus in every state that can have it
};

struct SheetRow {
    QString label;
    ButtonSetup setup;
};

/// A block of cells: one golden image, and one block of the sheet.
struct SheetGroup {
    QString name; ///< the golden image's file name without its ending
    QString title;
    QSize cell; ///< pixels; the button stands in the middle
    std::vector<SheetRow> rows;

    /// The size of all cells, and the place of one of them, in pixels from the first cell's corner.
    QSize size() const;
    QRect cellAt(int row, int column) const;
    /// The place of a row's button in its cell.
    QRect buttonIn(int row) const;
};

/// All groups: one for each button type with each content, then colours, effects, places and options, and
/// the buttons as the windows of the program have them.
const std::vector<SheetGroup>& buttonSheet();

} // namespace torvane

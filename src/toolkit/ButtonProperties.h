// SPDX-License-Identifier: MIT
// The saved state of a skinned button and the keys under which it is kept. What each value does is the
// button's affair.
#pragma once

#include "PropertyBag.h"
#include "platform/forms/Colours.h"
#include "platform/forms/Fonts.h"

#include <QPixmap>
#include <QString>

namespace torvane {

struct ButtonProperties {
    int buttonType = 2;
    QString caption;
    bool enabled = true;
    FontSpec font = Fonts::M8b;
    int colorScheme = 1;
    bool showFocusRect = true;
    OleColour backColor = Colours::buttonFace;
    OleColour backOver = Colours::buttonFace;
    OleColour foreColor = Colours::buttonText;
    OleColour foreOver = Colours::buttonText;
    OleColour maskColor = 0xC0C0C0;
    int mousePointer = 0;
    QPixmap mouseIcon;
    QPixmap pictureNormal;
    QPixmap pictureOver;
    bool useMaskColor = true;
    bool softBevel = false;
    int picturePosition = 0;
    bool useGreyscale = false;
    int specialEffect = 0;
    bool handPointer = false;
    bool checkBoxBehaviour = false;
    bool value = false;

    /// The state that a bag holds; a missing key gives its default, a missing font the given one.
    static ButtonProperties read(const PropertyBag& bag, const FontSpec& currentFont);
    /// Writes every key in the order of reading, but no key for a picture that there is not.
    void write(PropertyBag& bag) const;
};

} // namespace torvane

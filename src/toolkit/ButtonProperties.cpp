// SPDX-License-Identifier: MIT
// Keys and defaults of a saved skinned button.
#include "ButtonProperties.h"

namespace torvane {

namespace {
template <typename Value>
void take(const PropertyBag& bag, const char* key, Value& value) {
    value = bag.ReadProperty(QString::fromLatin1(key), value);
}

template <typename Value>
void put(PropertyBag& bag, const char* key, const Value& value) {
    bag.WriteProperty(QString::fromLatin1(key), QVariant::fromValue(value));
}

void putPicture(PropertyBag& bag, const char* key, const QPixmap& picture) {
    if (!picture.isNull()) put(bag, key, picture);
}
} // namespace

ButtonProperties ButtonProperties::read(const PropertyBag& bag, const FontSpec& currentFont) {
    ButtonProperties saved;
    saved.font = currentFont;
    take(bag, "BTYPE", saved.buttonType);
    take(bag, "TX", saved.caption);
    take(bag, "ENAB", saved.enabled);
    take(bag, "FONT", saved.font);
    take(bag, "COLTYPE", saved.colorScheme);
    take(bag, "FOCUSR", saved.showFocusRect);
    take(bag, "BCOL", saved.backColor);
    saved.backOver = saved.backColor;
    take(bag, "BCOLO", saved.backOver);
    take(bag, "FCOL", saved.foreColor);
    saved.foreOver = saved.foreColor;
    take(bag, "FCOLO", saved.foreOver);
    take(bag, "MCOL", saved.maskColor);
    take(bag, "MPTR", saved.mousePointer);
    take(bag, "MICON", saved.mouseIcon);
    take(bag, "PICN", saved.pictureNormal);
    take(bag, "PICH", saved.pictureOver); // the hover picture: key and property differ in name
    take(bag, "UMCOL", saved.useMaskColor);
    take(bag, "SOFT", saved.softBevel);
    take(bag, "PICPOS", saved.picturePosition);
    take(bag, "NGREY", saved.useGreyscale);
    take(bag, "FX", saved.specialEffect);
    take(bag, "HAND", saved.handPointer);
    take(bag, "CHECK", saved.checkBoxBehaviour);
    take(bag, "VALUE", saved.value);
    return saved;
}

void ButtonProperties::write(PropertyBag& bag) const {
    put(bag, "BTYPE", buttonType);
    put(bag, "TX", caption);
    put(bag, "ENAB", enabled);
    put(bag, "FONT", font);
    put(bag, "COLTYPE", colorScheme);
    put(bag, "FOCUSR", showFocusRect);
    put(bag, "BCOL", backColor);
    put(bag, "BCOLO", backOver);
    put(bag, "FCOL", foreColor);
    put(bag, "FCOLO", foreOver);
    put(bag, "MCOL", maskColor);
    put(bag, "MPTR", mousePointer);
    putPicture(bag, "MICON", mouseIcon);
    putPicture(bag, "PICN", pictureNormal);
    putPicture(bag, "PICH", pictureOver);
    put(bag, "UMCOL", useMaskColor);
    put(bag, "SOFT", softBevel);
    put(bag, "PICPOS", picturePosition);
    put(bag, "NGREY", useGreyscale);
    put(bag, "FX", specialEffect);
    put(bag, "HAND", handPointer);
    put(bag, "CHECK", checkBoxBehaviour);
    put(bag, "VALUE", value);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Colour arithmetic of the skinned button and its four colour schemes.
#include "ButtonPalette.h"

#include <algorithm>
#include <cmath>

namespace torvane {

namespace {
struct Channels {
    int red;
    int green;
    int blue;
};

Channels channelsOf(OleColour colour) {
    return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
            static_cast<int>(colour >> 16 & 0xFF)};
}

OleColour wordOf(const Channels& channels) {
    const auto clamped = [](int value) { return static_cast<OleColour>(std::clamp(value, 0, 255)); };
    return clamped(channels.red) | clamped(channels.green) << 8 | clamped(channels.blue) << 16;
}

// The edges that the custom and the container's scheme derive from their face.
void deriveEdges(ButtonPalette& palette, bool softBevel) {
    const auto shifted = [&](int amount) { return ShiftRgb(palette.face, softened(amount, softBevel)); };
    palette.shadow = shifted(-64);
    palette.light = shifted(31);
    palette.highlight = shifted(47);
    palette.darkShadow = shifted(-192);
}

ButtonPalette customScheme(const PaletteSource& source) {
    ButtonPalette palette;
    palette.face = Colours::translate(source.back);
    palette.faceOver = Colours::translate(source.backOver);
    palette.text = Colours::translate(source.fore);
    palette.textOver = Colours::translate(source.foreOver);
    deriveEdges(palette, source.softBevel);
    palette.accent = ShiftRgb(palette.face, softened(-128, source.softBevel));
    palette.accentLight = palette.face;
    return palette;
}

ButtonPalette fixedScheme() {
    ButtonPalette palette;
    palette.face = palette.faceOver = 0xC0C0C0;
    palette.shadow = 0x808080;
    palette.light = 0xDFDFDF;
    palette.highlight = 0xFFFFFF;
    palette.accent = 0x800000;
    palette.accentLight = 0xD1ADAD;
    return palette;
}

ButtonPalette containerScheme(const PaletteSource& source) {
    ButtonPalette palette;
    palette.face = palette.faceOver = Colours::translate(source.containerBack);
    palette.text = palette.textOver = Colours::translate(source.containerText);
    deriveEdges(palette, source.softBevel);
    palette.accent = Colours::translate(Colours::system(13));
    palette.accentLight = LightenRgb(palette.accent, 176);
    return palette;
}

ButtonPalette systemScheme() {
    const auto system = [](int index) { return Colours::translate(Colours::system(index)); };
    ButtonPalette palette;
    palette.face = palette.faceOver = system(15);
    palette.shadow = system(16);
    palette.light = system(22);
    palette.darkShadow = system(21);
    palette.highlight = system(20);
    palette.text = palette.textOver = system(18);
    palette.accent = system(13);
    palette.accentLight = LightenRgb(palette.accent, 176);
    return palette;
}

ButtonPalette schemeOf(const PaletteSource& source) {
    switch (source.colorScheme) {
    case 2: return customScheme(source);
    case 3: return fixedScheme();
    case 4: return containerScheme(source);
    default: return systemScheme();
    }
}
} // namespace

OleColour ShiftRgb(OleColour colour, int amount, bool blueRule) {
    const Channels old = channelsOf(colour);
    const int blueAmount = blueRule ? old.blue * amount / 192 : amount;
    return wordOf({old.red + amount, old.green + amount, old.blue + blueAmount});
}

OleColour LightenRgb(OleColour colour, int amount) {
    const auto lightened = [amount](int channel) { return (255 - amount) * channel / 255 + amount; };
    const Channels old = channelsOf(colour);
    return wordOf({lightened(old.red), lightened(old.green), lightened(old.blue)});
}

int gradientShift(int y, int height) { return static_cast<int>(std::nearbyint(-(58.0 / height) * y)); }

ButtonPalette ApplyColorScheme(const PaletteSource& source) {
    ButtonPalette palette = schemeOf(source);
    palette.mask = Colours::translate(source.mask);
    palette.deepFace = ShiftRgb(palette.face, softened(48, source.softBevel), source.buttonType == 3);
    return palette;
}

} // namespace torvane

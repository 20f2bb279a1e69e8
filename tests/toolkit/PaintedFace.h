// SPDX-License-Identifier: MIT
// A skinned button's paint for tests: a face of 20 x 20 pixels with custom colours, painted on an image.
#pragma once

#include "PanelForm.h"
#include "platform/forms/Fonts.h"
#include "toolkit/ButtonPainter.h"
#include "toolkit/TransparentBlit.h"

namespace torvane {

// The button back of the windows (red 78, green 77, blue 100) and the shades that it gives.
namespace Indigo {
constexpr OleColour face = 0x644D4E;
constexpr OleColour lit = 0x8B7475;       // + 31 + 8
constexpr OleColour highlight = 0x937C7D; // + 47
constexpr OleColour shadow = 0x240D0E;    // - 64
constexpr OleColour raised = 0x8C7576;    // + 40
constexpr OleColour sunken = 0x3C2526;    // - 40
} // namespace Indigo

// A light grey (208) and the shades that it gives in the gradient look.
namespace Grey {
constexpr OleColour face = 0xD0D0D0;
constexpr OleColour light = 0xEFEFEF;     // + 31
constexpr OleColour highlight = 0xFFFFFF; // + 47
constexpr OleColour edge = 0x5E5E5E;      // - 64 - 50
constexpr OleColour downEdge = 0x606060;  // - 64 - 48
constexpr OleColour inner = 0xC7C7C7;     // - 9
} // namespace Grey

constexpr OleColour pictureMask = 0xC0C0C0;

inline ButtonFace faceOf(int type, OleColour back, QSize size = {20, 20}, bool softBevel = false) {
    PaletteSource source;
    source.colorScheme = 2;
    source.buttonType = type;
    source.softBevel = softBevel;
    source.back = source.backOver = back;
    source.fore = 0x00FFFF;
    source.foreOver = 0x00C000;
    source.mask = pictureMask;
    ButtonFace face;
    face.type = type;
    face.customScheme = true;
    face.softBevel = softBevel;
    face.font = Fonts::of(Fonts::M8b);
    face.colours = ApplyColorScheme(source);
    face.layout.client = size;
    face.layout.focus = focusRect(type, size);
    return face;
}

inline QImage paintedFace(const ButtonFace& face, qreal ratio = 1.0) {
    QImage surface(face.layout.client * ratio, QImage::Format_RGB32);
    surface.setDevicePixelRatio(ratio);
    surface.fill(Qt::magenta);
    ButtonPainter(surface, face).paint();
    surface.setDevicePixelRatio(1.0);
    return surface;
}

/// A picture in the mask colour with one pixel of another colour at (2, 2), 5 x 5 pixels.
inline QImage dotPicture(OleColour dot) {
    QImage picture(5, 5, QImage::Format_RGB32);
    picture.fill(Colours::toQColor(pictureMask));
    picture.setPixelColor(2, 2, Colours::toQColor(dot));
    return picture;
}

/// Puts the picture at (8, 8), so that its dot falls on (10, 10).
inline void setPicture(ButtonFace& face, const QImage& picture) {
    face.normalPicture = picture;
    face.layout.picture = QRect(QPoint(8, 8), picture.size());
}

} // namespace torvane

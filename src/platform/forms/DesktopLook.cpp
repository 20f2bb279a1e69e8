// SPDX-License-Identifier: MIT
// Qt's palette from a few colours.
#include "DesktopLook.h"
#include "DesktopStyle.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

namespace torvane {

namespace {
QPalette paletteOf(const DesktopLook& look) {
    const QColor text = Colours::toQColor(look.text);
    const QColor faint = Colours::toQColor(look.faint);
    const QColor ground = Colours::toQColor(look.ground);
    // The constructor derives light and shadow from button and ground.
    QPalette palette(Colours::toQColor(look.button), ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        palette.setColor(role, text);
    }
    palette.setColor(QPalette::Base, Colours::toQColor(look.field));
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::ToolTipBase, Colours::toQColor(look.button));
    palette.setColor(QPalette::Highlight, Colours::toQColor(look.selection));
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Link, text);
    palette.setColor(QPalette::LinkVisited, faint);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

// Menus lie on whatever is on the screen, so they need an edge: Qt's style makes it of the ground's colour.
// Without the light colour disabled entries have no shadow, which would blur them.
QPalette menuPaletteOf(const DesktopLook& look) {
    QPalette palette = paletteOf(look);
    palette.setColor(QPalette::Window, Colours::toQColor(look.selection));
    palette.setColor(QPalette::Disabled, QPalette::Light, Qt::transparent);
    return palette;
}
} // namespace

void applyDesktopLook(const DesktopLook& look) {
    QApplication::setStyle(new DesktopStyle(QString::fromUtf8(look.signs)));
    const QPalette palette = paletteOf(look);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    QApplication::setPalette(menuPaletteOf(look), "QMenu");
}

} // namespace torvane

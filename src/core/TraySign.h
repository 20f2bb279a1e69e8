// SPDX-License-Identifier: MIT
// The program's icon in the tray as other windows change it. It belongs to the main window; implemented in
// app/ over that window, so that no other window includes it.
#pragma once

#include "Globals.h"

namespace torvane {

/// Both operations load the main window if it is not there.
class TraySign {
public:
    virtual ~TraySign() = default;

    /// Takes the picture of a file (spelled path). Fails if there is no picture in it; the old one stays
    /// then.
    virtual void setTrayPicture(const QString& path) = 0;
    /// Shows or removes the icon.
    virtual void setTrayShown(bool shown) = 0;

    /// The spelled path of the picture with a number, which is part of the file's name as it is.
    static QString pictureFile(const Globals& globals, const QString& number) {
        return globals.AppPath + QStringLiteral("\\data\\tray\\") + number + QStringLiteral(".dat");
    }
};

} // namespace torvane

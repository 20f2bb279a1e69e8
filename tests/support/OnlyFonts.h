// SPDX-License-Identifier: MIT
// A system that has few fonts, for one test class. To be set up in the class's initMain, before there is an
// application object.
#pragma once

#include <QByteArray>
#include <QTemporaryFile>
#include <initializer_list>

namespace torvane {

/// Of Debian's fonts only files of these names are there; "*" stands for any letters. Letters are hinted in
/// full, so that their widths are whole pixels.
inline void useOnlyFonts(std::initializer_list<const char*> files) {
    static QTemporaryFile file;
    if (!file.open()) qFatal("no file");
    file.write(R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd"><fontconfig>
        <dir>/usr/share/fonts</dir><cachedir prefix="xdg">fontconfig</cachedir>
        <match target="pattern">
            <edit name="hinting" mode="assign"><bool>true</bool></edit>
            <edit name="hintstyle" mode="assign"><const>hintfull</const></edit>
        </match>
        <selectfont><rejectfont><glob>*.*</glob></rejectfont>)");
    for (const char* name : files) {
        file.write(QByteArray("<acceptfont><glob>*/") + name + "</glob></acceptfont>");
    }
    file.write("</selectfont></fontconfig>");
    file.close();
    qputenv("FONTCONFIG_FILE", file.fileName().toUtf8());
}

} // namespace torvane

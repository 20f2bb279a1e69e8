// SPDX-License-Identifier: MIT
// A desktop of several screens of different density, for one test class. To be set up in the class's
// initMain, before there is an application object.
#pragma once

#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryFile>
#include <QWidget>
#include <QWindow>
#include <initializer_list>

namespace torvane {

/// Screens of 1000 x 800 pixels, from left to right, each with so many dots to the pixel.
inline void useScreens(std::initializer_list<double> densities) {
    static QTemporaryFile file;
    if (!file.open()) qFatal("no file");
    QByteArray screens;
    int count = 0;
    for (const double density : densities) {
        screens += screens.isEmpty() ? "" : ", ";
        screens +=
            R"({"name": "screen)" + QByteArray::number(count) + R"(", "x": )" +
            QByteArray::number(1000 * count) +
            R"(, "y": 0, "width": 1000, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": )" +
            QByteArray::number(density) + '}';
        ++count;
    }
    file.write(R"({"screens": [)" + screens + "]}");
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.fileName().toUtf8());
}

/// Has a window, with all that is in it, change to another screen; counted from 0.
inline void bringToScreen(QWidget& window, int number) {
    window.winId();
    window.windowHandle()->setScreen(QGuiApplication::screens()[number]);
}

} // namespace torvane

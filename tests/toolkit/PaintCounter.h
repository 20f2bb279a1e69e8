// SPDX-License-Identifier: MIT
// An event filter that counts how often a widget is painted.
#pragma once

#include <QEvent>
#include <QObject>

namespace torvane {

struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// A hollow rectangle with a thin black outline: an ornament that lets the mouse through.
#pragma once

#include "Control.h"

#include <QPainter>

namespace torvane {

class Shape : public Control {
    Q_OBJECT

public:
    Shape(QWidget& parent, const char* name, const DesignRect& rect) : Control(parent, name, rect, false) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    QString kind() const override { return QStringLiteral("shape"); }
    bool isExposed() const override { return false; }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawRect(rect().adjusted(0, 0, -1, -1)); }
};

} // namespace torvane

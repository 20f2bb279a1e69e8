// SPDX-License-Identifier: MIT
// A picture box: a plain surface that holds other controls.
#pragma once

#include "Colours.h"
#include "Control.h"

namespace torvane {

class Panel : public Control {
    Q_OBJECT

public:
    struct Look {
        OleColour back = Colours::buttonFace;
    };
    /// The parent is a form or another panel.
    Panel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("panel"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Grouping; }
    OleColour backColour() const { return m_look.back; }

signals:
    /// A key was pressed while the panel had the focus: key code of the toolkit.
    void keyPressed(int keyCode);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Look m_look;
};

} // namespace torvane

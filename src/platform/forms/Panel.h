// SPDX-License-Identifier: MIT
// A picture box: a plain surface that holds other controls.
#pragma once

#include "Colours.h"
#include "Control.h"
#include "Pictures.h"

namespace torvane {

class Panel : public Control {
    Q_OBJECT

public:
    struct Look {
        OleColour back = Colours::buttonFace;
        const char* picture = ""; ///< a name in the resources (see Pictures), or empty
    };
    /// The parent is a form or another panel.
    Panel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("panel"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Grouping; }
    OleColour backColour() const { return m_look.back; }
    const QPixmap& Picture() const { return m_picture.picture(devicePixelRatioF()); }

    /// The units that the panel's whole width counts; pixels at first. More than 0.
    void setScaleWidth(double units) { m_unitsPerPixel = units / width(); }
    /// A width in those units, in pixels.
    int pixels(double units) const { return qRound(units / m_unitsPerPixel); }

signals:
    /// A key was pressed while the panel had the focus: Qt key code.
    void keyPressed(int keyCode);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Look m_look;
    Pictures::Deferred m_picture;
    double m_unitsPerPixel = 1;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The painted surface of a skinned button: what it shows, when that is painted anew, where its parts and
// its outline lie. Paints only what was asked for, once, and otherwise copies the finished picture.
#pragma once

#include "ButtonPainter.h"
#include "ButtonProperties.h"
#include "platform/forms/Control.h"

namespace torvane {

class ButtonSurface : public Control {
    Q_OBJECT

public:
    void addAccessibleState(QAccessible::State& state) const override;

protected:
    enum State { normal = 0, pressed = 2 };
    enum Force { unlessSame, always };

    ButtonSurface(QWidget& parent, const char* name, const DesignRect& rect);

    /// Asks for a paint in the state; it happens with the next paint of the window. Without force, nothing
    /// happens when state and caption are those last painted. With no height, and while painting is not
    /// allowed, nothing happens and nothing is remembered.
    void Repaint(State state, Force force);
    void repaintLastState() { Repaint(m_lastState, always); }
    /// The same, and on the screen before the call returns.
    void repaintAtOnce(State state);

    /// Measures caption and picture and finds their places.
    void LayoutCaption();
    /// Takes the client size over: focus mark, layout, outline, paint.
    void takeSize();
    /// Takes a picture of what lies under the button now; for type 11.
    void GrabParentBackground();

    /// Whether the button itself is enabled, whatever its window is.
    bool Enabled() const { return isEnabledTo(parentWidget()); }
    void setPaintingAllowed(bool allowed);
    /// Whether the mouse counts as being over the button.
    bool isOver() const { return m_over; }
    void setOver(bool over) { m_over = over; }
    void setHasFocus(bool hasFocus) { m_hasFocus = hasFocus; }
    void setDefaultMark(bool isDefault) { m_isDefault = isDefault; }

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    ButtonProperties m_p; // but for `enabled` and `font`, which the widget holds

private:
    void reportPressed();
    bool surfaceIsStale() const;
    void renderSurface();
    ButtonFace faceToPaint() const;
    ButtonPalette palette() const;

    ButtonLayout m_layout;
    QImage m_surface;
    QImage m_background;
    State m_lastState = normal;
    QString m_lastCaption;
    bool m_paintingAllowed = true;
    bool m_paintedEnabled = true;
    bool m_over = false;
    bool m_hasFocus = false;
    bool m_isDefault = false;
    bool m_asked = false;     // a paint was asked for and has not happened yet
    bool m_askedOver = false; // the mouse flag at that moment
};

} // namespace torvane

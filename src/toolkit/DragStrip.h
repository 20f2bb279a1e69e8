// SPDX-License-Identifier: MIT
// Lets a label on the title band move its window, as windows without a title bar need it. The window decides
// what happens when it is let go.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"

namespace torvane {

class DragStrip : public QObject {
    Q_OBJECT

public:
    DragStrip(Form& window, Label& strip);

signals:
    /// The user has let go of the window.
    void dropped();

private:
    void press(QPoint screenPosition);
    void move(QPoint screenPosition);
    void release();
    QPoint pointInStrip(QPoint screenPosition) const;

    Form& m_window;
    Label& m_strip;
    bool m_dragging = false;
    qint16 m_dragX = 0; // twips from the strip's corner
    qint16 m_dragY = 0;
};

/// Puts a window back inside the screen that its middle is on: left and top first, then right and bottom. No
/// margin.
void putInsideScreen(Form& window);

} // namespace torvane

// SPDX-License-Identifier: MIT
// The gestures that open a window's menu: the right button on the label that moves the window, and the menu
// key or Shift+F10 anywhere in it. The window decides which menu.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"

namespace torvane {

class MenuOpener : public QObject {
    Q_OBJECT

public:
    MenuOpener(Form& window, Label& strip);

signals:
    /// The user wants the menu, with its corner there. A field that is being edited keeps the keys for the
    /// menu that it has itself.
    void wanted(QPoint screenPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOnStrip(const QObject* watched, const QEvent& event) const;
    QPoint placeForKeys() const;
    void pressMenuKey();

    Form& m_window;
    Label& m_strip;
};

} // namespace torvane

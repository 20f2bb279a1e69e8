// SPDX-License-Identifier: MIT
// A button that keeps one look, wherever the pointer is: for viewing all looks side by side. Everything else
// is copied from the button of a design.
#pragma once

#include "toolkit/chameleonButton.h"

namespace torvane {

class StillButton : public chameleonButton {
public:
    enum class Hold { rest, over, pressed, disabled };

    /// Is placed on `parent`, whose window must be a form, with the size of `original` at `place`.
    StillButton(QWidget& parent, const chameleonButton& original, QPoint place, Hold hold)
        : chameleonButton(parent, qPrintable(original.objectName()), rectOf(original, place)), m_hold(hold) {
        PropertyBag bag;
        original.WriteProperties(bag);
        ReadProperties(bag);
        setEnabled(hold != Hold::disabled);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void showEvent(QShowEvent* event) override {
        chameleonButton::showEvent(event);
        // While a button is pressed, the pointer is over it, too.
        setOver(m_hold == Hold::over || m_hold == Hold::pressed);
        Repaint(m_hold == Hold::pressed ? pressed : normal, always);
    }

private:
    static DesignRect rectOf(const chameleonButton& original, QPoint place) {
        return {double(place.x()), double(place.y()), double(original.width()), double(original.height())};
    }

    Hold m_hold;
};

} // namespace torvane

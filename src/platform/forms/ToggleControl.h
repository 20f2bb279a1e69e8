// SPDX-License-Identifier: MIT
// What a check box and an option button share: a caption beside a mark, drawn and heard by one of Qt's own
// buttons, which keys and assistive tools know.
#pragma once

#include "Colours.h"
#include "Control.h"

#include <optional>

class QAbstractButton;

namespace torvane {

class ToggleControl : public Control {
    Q_OBJECT

public:
    struct Look {
        const char* caption = "";
        FontSpec font = Fonts::M8;
        OleColour fore = Colours::black;
        std::optional<OleColour> back = std::nullopt; ///< without one the ground shows through
        bool checked = false;
    };

    /// The letter after an "&" is the access key; "&&" is shown as one.
    QString Caption() const;
    void setCaption(const QString& caption);
    OleColour foreColour() const { return m_look.fore; }
    std::optional<OleColour> backColour() const { return m_look.back; }
    /// Whether the mark is set.
    bool isChecked() const;
    /// The words that assistive tools say; the button within has role, state and press.
    QString accessibleText() const override;

signals:
    /// The user has used the control, or the program has set its value, be it to the same one.
    void Click();
    /// The user has pressed Return on it.
    void entered();

protected:
    /// The control becomes the parent of the button.
    ToggleControl(QWidget& parent, const char* name, const DesignRect& rect, const Look& look,
                  QAbstractButton& button);
    QAbstractButton& button() const { return m_button; }
    void keyPressEvent(QKeyEvent* event) override;

private:
    Look m_look;
    QAbstractButton& m_button;
};

} // namespace torvane

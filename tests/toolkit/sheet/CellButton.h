// SPDX-License-Identifier: MIT
// A skinned button of the sheet, and the two ways into a state: with mouse and focus as a user would bring
// it there, or held there by itself, so that many states can be seen at once.
#pragma once

#include "ButtonSheet.h"

#include <QPointer>
#include <optional>

namespace torvane {

class CellButton : public chameleonButton {
public:
    /// Stands on the parent at the place, not yet shown. A see-through button gets stripes to show.
    CellButton(QWidget& parent, QPoint place, const ButtonSetup& setup);
    ~CellButton() override { delete m_stripes; }

    /// Brings the shown button into the state by its properties, the mouse and the focus. Its window must
    /// be active. False if it could not be reached.
    bool bring(ButtonState state);
    /// Shows the state until the mouse comes.
    void hold(ButtonState state);

protected:
    void showEvent(QShowEvent* event) override;
    void enterEvent(QEnterEvent* event) override;

private:
    void setProperties(ButtonState state);
    bool point();
    void press();
    void showHeld();

    const bool m_keepsFocus;
    QPointer<QWidget> m_stripes; // gone first when the parent goes
    std::optional<ButtonState> m_held;
};

} // namespace torvane

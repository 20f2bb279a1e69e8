// SPDX-License-Identifier: MIT
// Searches the web for a game: hands the address of the search, with the text that the user types, to the
// browser, and closes.
#pragma once

#include "SearchROM.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "toolkit/WholeText.h"

#include <QShortcut>

namespace torvane {

class SearchROM : public SearchROMDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::SearchROM;

    explicit SearchROM(const Services& services);

    /// Runs once after construction.
    void Load();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ChameleonButton17_Click();

    const Services& m;
    WholeText m_request{Label2, Label4, Label1};
    WholeText m_notice{Label3, Label5, Label1};
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

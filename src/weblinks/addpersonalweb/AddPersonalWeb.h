// SPDX-License-Identifier: MIT
// The dialog that adds a page to the user's own web list. No field is checked: whatever is typed is written.
#pragma once

#include "AddPersonalWeb.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "weblinks/WebLists.h"

#include <QShortcut>

namespace torvane {

class AddPersonalWeb : public AddPersonalWebDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::AddPersonalWeb;

    explicit AddPersonalWeb(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Fills the fields with an entry. It is added as a new one, and the old one stays.
    void EditWeb(const QString& name, const QString& address);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void ChameleonButton17_Click();

    const Services& m;
    const WebLists m_lists{m.globals};
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

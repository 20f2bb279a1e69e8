// SPDX-License-Identifier: MIT
// The window of the tag database: fetches the shared file, filters its entries into a list, hands one of them
// to the window that writes it into a game. Reading and filtering are the work of OnlineDb.
#pragma once

#include "EditDB.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "tagdb/OnlineDb.h"

namespace torvane {

class EditDB : public EditDBDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::EditDB;

    explicit EditDB(const Services& services);

    /// Runs once after construction: shows the window, fetches the file, lists its entries. Waits for the end
    /// of the download; a window that is closed meanwhile ends it.
    void Load();
    /// Adds an entry after all rows of the list. Characters outside code page 1252 become "?".
    void LoadGameInDB(const QString& System, const QString& Title, const QString& Company,
                      const QString& Date, const QString& Info, const QString& Author, const QString& Kind);

protected:
    /// The window manager's close does what the button does.
    void queryUnload() override { chameleonButton1_Click(); }

private:
    void wireControls();
    void setCaptions();
    void fetch();
    void reportFetchFailure();
    OnlineDbFilter filter() const;
    OnlineDbFilter::Kind wantedKind() const;
    void ApplyOnlineFilter();
    void Timer1_Tick();
    void ListView1_DblClick(int row);
    void chameleonButton1_Click() { Unload(); }
    void ChameleonButton3_Click();
    void ChameleonButton17_Click();

    const Services& m;
    const Texts text{m.language, "OLDB"};
    const OnlineDb m_db{m.globals};
    std::shared_ptr<OnlineDbRows> m_rows = std::make_shared<OnlineDbRows>(); // what the list shows
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// One entry of the tag database, for reading. The database window fills it; the same window serves every
// entry until it is closed.
#pragma once

#include "DB_Info.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "toolkit/WholeText.h"

namespace torvane {

class DB_Info : public DB_InfoDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::DB_Info;

    explicit DB_Info(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Shows an entry: kind, title, company, date, author, system word, information. A system word that names
    /// no console leaves the platform as it was.
    void take(const QStringList& entry);

private:
    const Services& m;
    WholeText m_kind{Label1, Label22, Label2};
    WholeText m_title{Label3, Label21, Label4};
    WholeText m_company{Label5, Label20, Label6};
    WholeText m_date{Label7, Label19, Label8};
    WholeText m_author{Label9, Label18, Label10};
    WholeText m_info{Label15, Label16, Label14};
};

} // namespace torvane

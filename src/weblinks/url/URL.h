// SPDX-License-Identifier: MIT
// The web list: useful pages of a shared and a personal file. Shows one, opens it in the browser, deletes a
// personal one, and fetches a newer shared file. The hidden list has the entries, the one that the user sees
// their names.
#pragma once

#include "URL.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "toolkit/WholeText.h"
#include "weblinks/WebLists.h"

namespace torvane {

class URL : public URLDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::URL;

    explicit URL(const Services& services);

    /// Lists both files and selects the first page. Runs once after construction. A file that can't be read,
    /// and a first row without an entry, are a fatal error that is reported; the window stays usable.
    void Load();
    /// Closes the window and opens it again, with a name to remember.
    void SetNewName(const QString& name);
    /// The name that SetNewName was given; empty for none.
    const QString& NewName() const { return m_newName; }
    /// Called by the desk: the name to remember, if there is one.
    void take(const QStringList& subject) { m_newName = subject.value(0); }

private:
    void wireControls();
    void setCaptions();
    void selectFirst();
    void ListView1_Click();
    void List1_Click();
    void openPage();
    void ChameleonButton2_Click();
    void chameleonButton5_Click();
    void fetchNewer(const std::optional<QByteArray>& old);
    void replaceShared(const QByteArray& body);
    void reportFailedUpdate();

    const Services& m;
    const Texts text{m.language, "WebList"};
    const Texts capital{m.language, "Weblist"}; // the other spelling of the section, which some keys have
    const WebLists m_lists{m.globals};
    WholeText m_name{GameTitle, Lbl_ID3Title};
    WholeText m_address{GameDate, Lbl_ID3Date};
    QString m_newName;
};

} // namespace torvane

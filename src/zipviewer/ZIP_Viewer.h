// SPDX-License-Identifier: MIT
// The archive window: unpacks an archive into a folder of its own, lists the members, starts one in the
// emulator, and deletes the folder when it closes.
#pragma once

#include "ZIP_Viewer.design.h"
#include "catalogue/ZipMembers.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "platform/forms/Busy.h"

namespace torvane {

class ZIP_Viewer : public ZIP_ViewerDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::ZIP_Viewer;

    explicit ZIP_Viewer(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Unpacks the archive (full path and bare name) and lists it in the window, which the desk has shown.
    /// Serves events meanwhile. Retries until a member is listed or the user closes the window. An archive
    /// that is listed already is not read again; another one replaces it. Does nothing while another read is
    /// running.
    void ReadZIP(const QString& path, const QString& name);
    /// Reads the archive given as a list of its full path and its bare name.
    void take(const QStringList& archive) { ReadZIP(archive.value(0), archive.value(1)); }

protected:
    /// Closing via the window manager is the same as the close button.
    void queryUnload() override { chameleonButton1_Click(); }

private:
    void read(const QString& path, const QString& name);
    void discardArchive();
    void readUntilListed(const QString& path, const QString& name);
    void ListZipMembers(const QString& name);
    void showReason(UnZip::Reason reason);
    bool isGameSelected() const;
    void blankPanel();
    void closeWindow();
    void File2_Click();
    void ListView1_Click();
    void ListView1_DblClick();
    void chameleonButton1_Click();
    void chameleonButton2_Click() { setWindowStateWord(minimised); }

    const Services& m;
    ZipTemp m_temp{m.globals};
    QString ZipName;
    std::shared_ptr<const ZipMembers> m_members;
    bool m_isFailureReported = false;
    Busy m_reading{*this};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The window of an archive: unpacks it whole into a folder of its own, lists what came out, starts a member
// in the emulator, and takes the folder away when it closes.
#pragma once

#include "ZIP_Viewer.design.h"
#include "catalogue/ZipMembers.h"
#include "core/Desk.h"
#include "core/LanguageTables.h"
#include "emulator/EmulatorCatalogue.h"
#include "emulator/ShellAndClose.h"

#include <QEventLoop>

namespace torvane {

/// What the window works with; all of it outlives the window.
struct ZIP_ViewerParts {
    Runtime& runtime;
    Desk& desk;
    const Globals& globals;
    const LanguageTables& language;
    const EmulatorCatalogue& emulators;
    ShellAndClose& shell;
};

class ZIP_Viewer : public ZIP_ViewerDesign {
    Q_OBJECT

public:
    explicit ZIP_Viewer(const ZIP_ViewerParts& parts);

    /// Runs once after construction.
    void Load();
    /// Shows the window in the place of the main one, unpacks the archive (full path and bare name) and lists
    /// it. Serves events meanwhile; returns when a member is listed, which may be never, or the user closes
    /// the window.
    void ReadZIP(const QString& path, const QString& name);

protected:
    /// The window manager's close does what the close button does.
    void queryUnload() override { chameleonButton1_Click(); }

private:
    void readUntilListed(const QString& path, const QString& name);
    void ListZipMembers(const QString& name);
    void pause(int milliseconds);
    void blankPanel();
    void closeWindow();
    void File2_Click();
    void ListView1_Click();
    void ListView1_DblClick();
    void chameleonButton1_Click();
    void chameleonButton2_Click() { setWindowStateWord(minimised); }
    QString text(const char* key) const;

    ZIP_ViewerParts m;
    ZipTemp m_temp{m.globals};
    QString ZipName;
    QEventLoop m_pause;
    bool m_isReading = false;
    bool m_isToClose = false;
};

} // namespace torvane

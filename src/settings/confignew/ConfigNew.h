// SPDX-License-Identifier: MIT
// The control panel: opens the windows of the settings, and asks the update server for a newer version.
#pragma once

#include "ConfigNew.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "settings/VersionFile.h"

#include <QShortcut>
#include <optional>

namespace torvane {

class ConfigNew : public ConfigNewDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::ConfigNew;

    explicit ConfigNew(const Services& services);

    /// Runs once after construction.
    void Load();

private:
    void raiseTitle();
    void wireControls();
    void opens(chameleonButton& button, Window window);
    void chameleonButton6_Click();
    /// What the server has sent, or nothing if that has failed.
    struct Answer {
        std::optional<QByteArray> body = {};
        bool isCancelled = false;
    };
    Answer fetch();
    void reportFetchFailure();
    void check(const QByteArray& body);
    void keep(const QByteArray& body);
    void offer(const QString& version);

    const Services& m;
    const Texts text{m.language, "ControlPanel"};
    const VersionFile m_file{m.globals};
    bool m_isChecking = false;
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

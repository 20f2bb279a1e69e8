// SPDX-License-Identifier: MIT
// The about window: the program's name and version, the credits, and the way to report a bug.
#pragma once

#include "Aboutfrm.design.h"
#include "core/Services.h"
#include "core/Window.h"

#include <QShortcut>

namespace torvane {

class Aboutfrm : public AboutfrmDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Aboutfrm;

    explicit Aboutfrm(const Services& services);

    /// Runs once after construction. Without its file the movie stays empty, and nothing is reported.
    void Load();

private:
    void ChameleonButton17_Click();

    const Services& m;
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

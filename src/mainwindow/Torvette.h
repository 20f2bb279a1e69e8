// SPDX-License-Identifier: MIT
// The compact window: a strip that stands in for the main window, which stays loaded and hidden behind it. It
// steps through the list and launches; the selection and its data are the main window's.
#pragma once

#include "Torvette.design.h"
#include "core/GameShelf.h"
#include "core/Services.h"
#include "core/Window.h"

namespace torvane {

class Torvette : public TorvetteDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Torvette;

    explicit Torvette(const Services& services);

    /// Runs once after construction.
    void Load();

    /// Builds the running line anew from the selected game.
    void RefreshMyList();
    /// Shows the data of the selected game. Fails if its file can't be opened, with all but size and number
    /// shown.
    void ROMData();

protected:
    void queryUnload() override;

private:
    const Services& m;
};

} // namespace torvane

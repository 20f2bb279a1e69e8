// SPDX-License-Identifier: MIT
// The window that is never shown. It is created at the start and stays to the end.
#pragma once

#include "Menuing.design.h"
#include "core/Services.h"
#include "core/Window.h"

namespace torvane {

class Menuing : public MenuingDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::Menuing;

    explicit Menuing(const Services& services);

    /// Does nothing; kept for callers that want to be sure that the window is there.
    void LoadMenu() {}
};

} // namespace torvane

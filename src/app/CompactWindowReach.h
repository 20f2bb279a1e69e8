// SPDX-License-Identifier: MIT
// The compact window as the other windows see it.
#pragma once

#include "Windows.h"
#include "core/CompactWindow.h"

namespace torvane {

class CompactWindowReach : public CompactWindow {
public:
    CompactWindowReach(Windows& windows, Runtime& runtime) : m_windows(windows), m_runtime(runtime) {}

    bool isShown() const override;
    void refresh() override;
    void follow() override;
    void takeCorner() override;

private:
    Torvette* window() const { return m_windows.slot<Torvette>().ifLoaded(); }

    Windows& m_windows;
    Runtime& m_runtime;
};

} // namespace torvane

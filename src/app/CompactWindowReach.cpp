// SPDX-License-Identifier: MIT
// Requests to the compact window.
#include "CompactWindowReach.h"

namespace torvane {

bool CompactWindowReach::isShown() const { return window() != nullptr && window()->isVisible(); }

void CompactWindowReach::refresh() {
    if (window() == nullptr) return;
    m_runtime.reporting([this] {
        window()->RefreshMyList();
        window()->ROMData();
    });
}

void CompactWindowReach::follow() {
    if (window() != nullptr) window()->follow();
}

void CompactWindowReach::takeCorner() {
    if (isShown()) window()->takeCorner();
}

} // namespace torvane

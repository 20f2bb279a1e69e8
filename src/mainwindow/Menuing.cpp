// SPDX-License-Identifier: MIT
// The never-shown window.
#include "Menuing.h"

namespace torvane {

Menuing::Menuing(const Services& services) : MenuingDesign(services.runtime) {}

} // namespace torvane

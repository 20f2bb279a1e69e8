// SPDX-License-Identifier: MIT
// The never-shown window.
#include "Menuing.h"

namespace torvane {

Menuing::Menuing(Runtime& runtime)
    : Form(runtime, {.name = "Menuing",
                     .title = "Form1",
                     .clientSize = {460, 439},
                     .border = FormDesign::sizable,
                     .start = FormDesign::systemDefault,
                     .unit = FormDesign::twips,
                     .inTaskBar = true}) {}

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that is never shown.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/INITool.h"

namespace torvane {

struct MenuingDesign : Form {
    using Design = MenuingDesign;

    explicit MenuingDesign(Runtime& runtime)
        : Form(runtime, {.name="Menuing", .title="Form1", .clientSize={460,439}, .border=FormDesign::sizable,
                         .start=FormDesign::systemDefault, .unit=FormDesign::twips, .inTaskBar=true}) {}

    INITool INITool1 {*this, "INITool1"};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the intro: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/MoviePlayer.h"
#include "platform/forms/Panel.h"
#include "platform/forms/Timer.h"
#include "toolkit/DesignWords.h"

namespace torvane {

struct SplashDesign : Form {
    using Design = SplashDesign;

    explicit SplashDesign(Runtime& runtime)
        : Form(runtime, {.name="Splash", .title="", .clientSize={460,265}, .picture="Splash.bmp"}) {
        // What assistive tools call the things that show no words of their own.
        wordings().addName(*this, spoken("intro", "Introducción"));
        Picture1.isCalled(spoken("intro", "Introducción"));
        Flash.isCalled(spoken("intro", "Introducción"));
    }

    Panel           Picture1 {*this, "Picture1", {134,66,191,121}, {0x8080FF}};
    MoviePlayer     Flash    {Picture1, "Flash", {0,0,192,122}};
    Timer           Timer1   {*this, "Timer1", 250, true};
};

} // namespace torvane

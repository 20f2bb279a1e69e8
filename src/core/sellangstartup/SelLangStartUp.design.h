// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that asks for the language: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/Timer.h"
#include "toolkit/DesignWords.h"

namespace torvane {

struct SelLangStartUpDesign : Form {
    using Design = SelLangStartUpDesign;

    explicit SelLangStartUpDesign(Runtime& runtime)
        : Form(runtime, {.name="SelLangStartUp", .title="Form1", .clientSize={480,320}, .picture="SelLangStartUp.jpg",
                         .backColour=0x0000FF, .unit=FormDesign::twips}) {
        // What assistive tools call the things that show no words of their own, or odd ones.
        wordings().addName(*this, always("Idioma · Llengua · Language"));
        ok.isCalled(always("OK"));
    }

    Label           Label4 {*this, "Label4", {276,90,71,25}, {"Español", trebuchet(14.25), white}};
    Label           Label5 {*this, "Label5", {276,114,71,25}, {"Català", trebuchet(14.25), white}};
    Label           Label6 {*this, "Label6", {276,138,71,25}, {"English", trebuchet(14.25), white}};
    Label           Label7 {*this, "Label7", {258,16,203,145}, {"Select Your Language", trebuchet(14.25), white}};
    Label           ok     {*this, "ok", {416,164,41,39}, {"ok", trebuchet(26.25), white}};
    Label           no     {*this, "no", {266,166,47,39}, {"no!", trebuchet(24), white}};
    Label           Label1 {*this, "Label1", {262,272,285,67}, {"Torvane 1.1", trebuchet(27.75), white}};
    Timer           Timer2 {*this, "Timer2", 15000, false};
    Timer           Timer1 {*this, "Timer1", 75, false};
    Image           Image1 {*this, "Image1", {98,252,480,320}, "SelLangStartUp-second.jpg", false};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the program's own question: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct TorvMsgDesign : Form {
    using Design = TorvMsgDesign;

    explicit TorvMsgDesign(Runtime& runtime)
        : Form(runtime, {.name="TorvMsg", .title="", .clientSize={302,68}, .picture="TorvMsg.jpg", .backColour=0x00FFFF,
                         .unit=FormDesign::twips}) {
        Label2.names(*this); // for assistive tools: the question is all that the window says
    }

    Label           Label1           {*this, "Label1", {128,320,13,1}, {"", M8, black, flushLeft, false, 0x00FFFF}};
    Label           Label3           {*this, "Label3", {140,314,1,7}, {"Label3", M8, black, flushLeft, false, 0x00FFFF}};
    Label           Label4           {*this, "Label4", {140,314,28,1}, {"Label4", M8, black, flushLeft, false, 0x00FFFF}};
    Label           Label5           {*this, "Label5", {144,317,19,13}, {"sí", V8b, 0x00FFFF}};
    Label           Label6           {*this, "Label6", {167,314,1,22}, {"", M8, black, flushLeft, false, 0x00FFFF}};
    Label           Label7           {*this, "Label7", {88,361,13,1}, {"", M8, black, flushLeft, false, 0x8080FF}};
    Label           Label8           {*this, "Label8", {88,361,1,7}, {"Label8", M8, black, flushLeft, false, 0x8080FF}};
    Label           Label9           {*this, "Label9", {61,367,28,1}, {"Label9", M8, black, flushLeft, false, 0x8080FF}};
    Label           Label10          {*this, "Label10", {67,352,19,13}, {"no", V8b, 0x8080FF}};
    Label           Label11          {*this, "Label11", {61,346,1,22}, {"Label11", M8, black, flushLeft, false, 0x8080FF}};
    TVLabel         Label2           {*this, "Label2", {6,6,273,19}, {"##################", M8}};
    chameleonButton chameleonButton2 {*this, "chameleonButton2", {0,41.3,151,27}, answer("si", 0x9FFFA5)};
    chameleonButton chameleonButton3 {*this, "chameleonButton3", {151.3,41.3,151,27}, answer("no", 0xC0C0FF)};
    Image           Image2           {*this, "Image2", {100,343,24,24}, "no-24.png"};
    Image           Image3           {*this, "Image3", {104,311,24,24}, "yes-24.png"};
};

} // namespace torvane

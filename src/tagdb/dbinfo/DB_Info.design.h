// SPDX-License-Identifier: MIT
// clang-format off
// The design of the view of one database entry: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct DB_InfoDesign : Form {
    using Design = DB_InfoDesign;

    explicit DB_InfoDesign(Runtime& runtime)
        : Form(runtime, {.name="DB_Info", .title=" OnLine DataBase ··· +Info", .clientSize={382,314}, .picture="DB_Info.jpg",
                         .backColour=0x0000FF}) {
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
    }

    Label           Label1           {*this, "Label1", {154,26,223,15}, {"####", V8, white}};
    Label           Label3           {*this, "Label3", {154,48,223,15}, {"####", V8, white}};
    Label           Label5           {*this, "Label5", {154,70,223,15}, {"####", V8, white}};
    Label           Label7           {*this, "Label7", {154,92,223,15}, {"####", V8, white}};
    Label           Label9           {*this, "Label9", {154,114,223,15}, {"####", V8, white}};
    Label           Label11          {*this, "Label11", {154,136,221,15}, {"####", V8, white}};
    Label           Label15          {*this, "Label15", {6,182,371,89}, {"", V8, white}};
    chameleonButton chameleonButton1 {*this, "chameleonButton1", {360,0,22,21}, onBand("close-16.png")};
    chameleonButton Command1         {*this, "Command1", {278,284,100,26}, foot("Cerrar")};
    TVLabel         Label2           {*this, "Label2", {4,24,145,15}, {""}};
    TVLabel         Label4           {*this, "Label4", {4,46,147,15}, {""}};
    TVLabel         Label6           {*this, "Label6", {4,68,149,15}, {""}};
    TVLabel         Label8           {*this, "Label8", {4,90,149,15}, {""}};
    TVLabel         Label10          {*this, "Label10", {4,112,147,15}, {""}};
    TVLabel         Label12          {*this, "Label12", {4,134,151,15}, {""}};
    TVLabel         Label14          {*this, "Label14", {4,162,105,15}, {""}};
    Label           Label13          {*this, "Label13", {4,2,353,17}, {"Torvane 1.1 » ROM.TAG Info", V9b, white}};
    Label           Label16          {*this, "Label16", {8,184,371,89}, Label15};
    Label           Label17          {*this, "Label17", {156,138,221,15}, Label11};
    Label           Label18          {*this, "Label18", {156,116,223,15}, Label9};
    Label           Label19          {*this, "Label19", {156,94,223,15}, Label7};
    Label           Label20          {*this, "Label20", {156,72,223,15}, Label5};
    Label           Label21          {*this, "Label21", {156,50,223,15}, Label3};
    Label           Label22          {*this, "Label22", {156,28,223,15}, Label1};
};

} // namespace torvane

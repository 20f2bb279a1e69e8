// SPDX-License-Identifier: MIT
// clang-format off
// The design of the about window: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/MoviePlayer.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct AboutfrmDesign : Form {
    using Design = AboutfrmDesign;

    explicit AboutfrmDesign(Runtime& runtime)
        : Form(runtime, {.name="Aboutfrm", .title="Torvane 1.1", .clientSize={442,458}, .picture="Aboutfrm.jpg", .backColour=slate,
                         .inTaskBar=true}) {
        Label5.names(*this);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        ShockwaveFlash1.isCalled(spoken("credits", "Créditos"));
    }

    Label           Label2            {*this, "Label2", {12,30,168,46}, {"Torvane", verdana(26.25), white}};
    Label           Label22           {*this, "Label22", {6,62,431,4}, {"", M8, white, flushLeft, false, white}};
    Label           Label23           {*this, "Label23", {170,14,86,52}, {"1.1", verdana(36), white}};
    Label           Label24           {*this, "Label24", {272,66,165,18}, {"by Torvane ·· 1.1 r2", V9b, white, flushRight}};
    chameleonButton chameleonButton1  {*this, "chameleonButton1", {420,0,22,21}, onBand("close-16.png")};
    Label           Label5            {*this, "Label5", {4,2,411,17}, {"Acerca de Torvane 1.1 r2", V9b, white}};
    MoviePlayer     ShockwaveFlash1   {*this, "ShockwaveFlash1", {5.5,88,431,333}};
    TVLabel         TVLabel1          {*this, "TVLabel1", {6,434,281,17}, {"¿Has encontrado un BUG? »", M8}};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {292,428,146,26}, foot("Reportar BUGs", "bug-16.png")};
    Image           Image2            {*this, "Image2", {580,568,32,32}, "torvane-32.png"};
    Image           Close             {*this, "Close", {596,188,16,16}, "close-16.png"};
    Image           Close_red         {*this, "Close_red", {602,333,16,16}, "close-16.png", false};
    Image           Close_yellow      {*this, "Close_yellow", {587,333,16,16}, "close-16.png", false};
    Image           Close_white       {*this, "Close_white", {572,333,16,16}, "close-16.png", false};
};

} // namespace torvane

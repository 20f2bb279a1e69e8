// SPDX-License-Identifier: MIT
// clang-format off
// The design of the compact window: one line a control, in tab order. What the controls do is in Torvette.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct TorvetteDesign : Form {
    using Design = TorvetteDesign;

    // The picture is as tall as the window with its panel folded out; the design shows the strip alone.
    explicit TorvetteDesign(Runtime& runtime)
        : Form(runtime, {.name="Torvette", .title="Torvane 1.1", .clientSize={300,23}, .start=FormDesign::systemDefault,
                         .picture="Torvette.jpg", .backColour=0x0080FF, .inTaskBar=true}) {
        wordings().addName(*this, always("Torvane 1.1"));
        Text1.conceal();
    }

    static constexpr OleColour lavender = 0xA37774;
    static constexpr OleColour magenta  = 0xFF00FF;
    static constexpr FontSpec C9b = {FontSpec::CourierNew, 9.75, true};

    // A button of the strip, with the back colour of the row or of the panel below it.
    static constexpr ButtonLook onStrip(const char* picture, OleColour back = indigo, OleColour mask = black) {
        return {.type=6, .fx=3, .back=back, .fore=0x808080, .foreOver=0x00C000, .mask=mask, .picture=picture, .font=V8b};
    }

    Label           Label1            {*this, "Label1", {28,4,171,15}, {"", C9b, white, flushLeft, false, indigo}};
    TextBox         Text1             {*this, "Text1", {174,290,10,19}, {"filler text"}};
    Label           Label2            {*this, "Label2", {0,0,300,135}, {}};
    chameleonButton Edit_Menu         {*this, "Edit_Menu", {0,0,24,23}, onStrip("previous-16.png")};
    chameleonButton chameleonButton1  {*this, "chameleonButton1", {204,0,24,23}, onStrip("next-16.png")};
    chameleonButton chameleonButton2  {*this, "chameleonButton2", {228,0,24,23}, onStrip("launch-16.png", indigo, magenta)};
    chameleonButton chameleonButton3  {*this, "chameleonButton3", {276,0,24,23}, onStrip("back-16.png")};
    chameleonButton ChameleonButton4  {*this, "ChameleonButton4", {252,0,24,23}, onStrip("unfold-16.png")};
    chameleonButton ChameleonButton6  {*this, "ChameleonButton6", {276,23,24,23}, onStrip("search-16.png", lavender)};
    chameleonButton ChameleonButton7  {*this, "ChameleonButton7", {276,111,24,23}, onStrip("pinned-16.png", lavender)};
    chameleonButton ChameleonButton9  {*this, "ChameleonButton9", {276,111,24,23}, onStrip("unpinned-16.png", lavender)};
    chameleonButton ChameleonButton10 {*this, "ChameleonButton10", {252,0,24,23}, onStrip("fold-16.png")};
    Label           Label3            {*this, "Label3", {4,22,119,35}, {"#0000", verdana(24), white}};
    Label           Label4            {*this, "Label4", {126,28,145,13}, {"Formato: GB Classic", V8b, white, flushRight}};
    Label           Label5            {*this, "Label5", {126,42,145,13}, {"Tamaño: 1024KB", V8b, white, flushRight}};
    Label           Label6            {*this, "Label6", {4,58,269,13}, {"Compañía: Nintendo", V8b, white}};
    Label           Label7            {*this, "Label7", {4,72,269,59}, {"Formato: GB Classic", V8, white}};
    Timer           Timer1            {*this, "Timer1", 500, true};
};

} // namespace torvane

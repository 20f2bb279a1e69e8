// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that searches the web for a game: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct SearchROMDesign : Form {
    using Design = SearchROMDesign;

    explicit SearchROMDesign(Runtime& runtime)
        : Form(runtime, {.name="SearchROM", .title="Form3", .clientSize={373,167}, .picture="SearchROM.jpg", .backColour=0x0000FF}) {
        Label1.names(*this);
        Label2.names(CRYTextBox1);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
    }

    static constexpr const char* request = "Escribe el nombre del juego que buscas. Los resultados mostrados corresponderán a "
                                           "E-Mule Links, que podrás bajar usando E-Mule o E-Donkey.";
    static constexpr const char* notice  = "Los resultados son propiedad de La Página de Alderon. La responsabilidad sobre la "
                                           "información proporcionada en dicha página es del autor de la misma.";

    chameleonButton chameleonButton1  {*this, "chameleonButton1", {351,0,22,21}, onBand("close-16.png")};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {207,137,162,26}, foot("Realizar Búsqueda", "search-24.png")};
    Label           Label1            {*this, "Label1", {4,2,323,17}, {"Torvane 1.1 » Buscar ROM", V9b, white}};
    Label           Label2            {*this, "Label2", {4,24,365,41}, {request, V8b, white, centred}};
    Label           Label3            {*this, "Label3", {6,94,361,35}, {notice, verdana(6.75), white}};
    TextBox         CRYTextBox1       {*this, "CRYTextBox1", {10,72,353,19}, {"", V8b, white, indigo}};
    Label           Label4            {*this, "Label4", {6,26,365,41}, Label2};
    Label           Label5            {*this, "Label5", {8,96,361,35}, Label3};
};

} // namespace torvane

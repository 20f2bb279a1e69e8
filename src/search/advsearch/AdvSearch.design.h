// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that goes to a game of the list: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/TextBox.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct AdvSearchDesign : Form {
    using Design = AdvSearchDesign;

    explicit AdvSearchDesign(Runtime& runtime)
        : Form(runtime, {.name="AdvSearch", .title="Form3", .clientSize={450,274}, .picture="AdvSearch.jpg", .backColour=0x0000FF}) {
        Label1.names(*this);
        TVLabel1.names(Search_0);
        TVLabel2.names(Search_1);
        TVLabel3.names(Search_2);
        TVLabel4.names(Search_3);
        Label3.names(CRYTextBox1);
        Label4.names(Text1);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        // The options bear these words, and do what a click on the words does.
        for (TVLabel* caption : {&TVLabel1, &TVLabel2, &TVLabel3, &TVLabel4}) caption->conceal();
    }

    chameleonButton chameleonButton1  {*this, "chameleonButton1", {428,0,22,21}, onBand("close-16.png")};
    Label           Label1            {*this, "Label1", {4,2,421,17}, {"Torvane 1.1 » Búsqueda Avanzada", V9b, white}};
    OptionButton    Search_0          {*this, "Search(0)", {6,29,15,17}, {"", V8b, white, {}, true}};
    TVLabel         TVLabel1          {*this, "TVLabel1", {22,28,423,17}, {"Buscar por Nombre"}};
    Label           Label3            {*this, "Label3", {24,44,361,13}, {initials, verdana(6.75), white}};
    Label           Label2            {*this, "Label2", {26,46,361,13}, Label3};
    TextBox         CRYTextBox1       {*this, "CRYTextBox1", {10,60,433,19}, {"", V8b, white, indigo}};
    OptionButton    Search_1          {*this, "Search(1)", {6,89,15,17}, {"", V8b, white}};
    TVLabel         TVLabel2          {*this, "TVLabel2", {22,88,423,17}, {"Buscar por posición en la lista"}};
    Label           Label4            {*this, "Label4", {24,104,361,13}, {"Introduce el número de orden del juego", verdana(6.75), white}};
    TextBox         Text1             {*this, "Text1", {10,120,433,19}, {"", V8b, white, indigo}};
    Label           Label5            {*this, "Label5", {26,106,361,13}, Label4};
    OptionButton    Search_2          {*this, "Search(2)", {6,167,15,17}, {"", V8b, white}};
    TVLabel         TVLabel3          {*this, "TVLabel3", {22,166,423,17}, {"Ir hasta el final de la lista"}};
    OptionButton    Search_3          {*this, "Search(3)", {6,147,15,17}, {"", V8b, white}};
    TVLabel         TVLabel4          {*this, "TVLabel4", {22,146,423,17}, {"Ir hasta el principio de la lista"}};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {284,244,162,26}, foot("Realizar Búsqueda", "search-24.png")};

private:
    static constexpr const char* initials = "Escribe la inicial o las 3 primeras letras del juego a buscar.";
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window of the general options: one line a control, in tab order.
#pragma once

#include "platform/forms/CheckBox.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/Panel.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct ConfGenDesign : Form {
    using Design = ConfGenDesign;

    explicit ConfGenDesign(Runtime& runtime)
        : Form(runtime, {.name="ConfGen", .title="Form1", .clientSize={556,302}, .picture="ConfGen.jpg", .backColour=0x0000FF}) {
        Label1.names(*this);
        Label5.names(Picture1);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
    }

    static constexpr OleColour graphite = 0x404040;
    static constexpr OleColour silver = 0x808080;

    chameleonButton chameleonButton1  {*this, "chameleonButton1", {534,0,22,21}, onBand("close-16.png")};
    Label           Label1            {*this, "Label1", {4,2,421,17}, {"Torvane 1.1 » Configuración General", V9b, white}};
    CheckBox        Check3            {*this, "Check3", {6,214,547,13}, {"Mostrar la pantalla de Intro al iniciar", V8b, white, graphite}};
    CheckBox        Check4            {*this, "Check4", {6,232,546,13}, {"Iniciar en Modo Torvette directamente", V8b, white, graphite}};
    CheckBox        Check6            {*this, "Check6", {6,250,547,13}, {archives, V8b, white, graphite, true}};
    OptionButton    Option2_0         {*this, "Option2(0)", {374,134,176,13}, {"Esq. Izquierda", V8b, black}};
    OptionButton    Option2_1         {*this, "Option2(1)", {374,150,176,13}, {"Esq. Derecha", V8b, black, {}, true}};
    CheckBox        Check2            {*this, "Check2", {368,190,183,13}, {"Siempre Encima", V8b, black, silver, true}};
    Label           Label7            {*this, "Label7", {368,120,130,13}, {"Posición de Torvette", V8b, black}};
    CheckBox        Check1            {*this, "Check1", {8,28,349,13}, {"Activar el Torvane Agent", V8b, white, slate, true}};
    Label           Label5            {*this, "Label5", {6,52,353,13}, {"Elige un color para el Torvane Agent", V8b, white}};
    Label           Label4            {*this, "Label4", {370,26,150,13}, {"Directorio de Capturas", V8b, white}};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {368,86,184,26}, wide("Seleccionar...")};
    chameleonButton ChameleonButton2  {*this, "ChameleonButton2", {368,58,184,26}, wide("Ver Seleccionado")};
    chameleonButton ChameleonButton3  {*this, "ChameleonButton3", {430,273,122,25}, wide("Cerrar")};
    Panel           Picture1          {*this, "Picture1", {12,70,345,131}, {slate}};
    OptionButton    Option1_6         {Picture1, "Option1(6)", {20,109,317,13}, {"Amarillo / Dorado", V8, white}};
    OptionButton    Option1_5         {Picture1, "Option1(5)", {20,91,317,13}, {"Verde", V8, white}};
    OptionButton    Option1_4         {Picture1, "Option1(4)", {20,73,317,13}, {"Lila", V8, white}};
    OptionButton    Option1_3         {Picture1, "Option1(3)", {20,55,317,13}, {"Rojo", V8, white}};
    OptionButton    Option1_2         {Picture1, "Option1(2)", {20,36,317,13}, {"Azul Celeste", V8, white}};
    OptionButton    Option1_1         {Picture1, "Option1(1)", {20,19,317,13}, {"Azul Fuerte", V8, white}};
    OptionButton    Option1_0         {Picture1, "Option1(0)", {20,2,317,13}, {"Normal (Predeterminado)", V8, white}};
    Image           Image1            {Picture1, "Image1", {0,108,16,16}, "tray-6-16.png"};
    Image           Image4            {Picture1, "Image4", {0,90,16,16}, "tray-5-16.png"};
    Image           Image3            {Picture1, "Image3", {0,72,16,16}, "tray-4-16.png"};
    Image           Image2            {Picture1, "Image2", {0,36,16,16}, "tray-2-16.png"};
    Image           TrayIcon_Rojo     {Picture1, "TrayIcon_Rojo", {0,54,16,16}, "tray-3-16.png"};
    Image           TrayIcon_Normal   {Picture1, "TrayIcon_Normal", {0,0,16,16}, "tray-0-16.png"};
    Image           TrayIcon_Azul     {Picture1, "TrayIcon_Azul", {0,18,16,16}, "tray-1-16.png"};
    CommonDialog    Dlg               {*this, "Dlg"};

private:
    static constexpr const char* archives = "Los ZIPs se abren en una ventana aparte al hacer DobleClic";
};

} // namespace torvane

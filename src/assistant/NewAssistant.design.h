// SPDX-License-Identifier: MIT
// clang-format off
// The design of the assistant that adds games: one line a control, in tab order.
#pragma once

#include "platform/forms/CommonDialog.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/Panel.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct NewAssistantDesign : Form {
    using Design = NewAssistantDesign;

    explicit NewAssistantDesign(Runtime& runtime)
        : Form(runtime, {.name="NewAssistant", .title="Form1", .clientSize={480,346}, .picture="NewAssistant-One.jpg",
                         .backColour=0x0000FF, .unit=FormDesign::twips}) {
        // What assistive tools call the things that show no words of their own.
        wordings().addName(*this, {"MainMenu", "romassist", "Asistente de ROM"});
        FilePath.isCalled(spoken("chosenfile", "Archivo elegido"));
        AddFile.isCalled({"Assistant", "f3", "Un solo juego"});
        AddDir.isCalled({"Assistant", "f4", "Toda una carpeta"});
        ChameleonButton5.isCalled({"Assistant", "f6", "Sí, eliminar"});
        ChameleonButton6.isCalled({"Assistant", "f7", "No, conservar"});
        Pista.isCalled(spoken("progress", "Progreso de la copia"));
        Label2.conceal();
        File1.conceal();
    }

    static constexpr const char* games = "*.gba;*.gbc;*.gb;*.agb;*.cgb;*.zip;*.bin";

    chameleonButton ChameleonButton2 {*this, "ChameleonButton2", {0,320,106,26}, wide("Salir")};
    chameleonButton chameleonButton1 {*this, "chameleonButton1", {374,320,106,26}, wide("Siguiente >")};
    chameleonButton chameleonButton3 {*this, "chameleonButton3", {268,320,106,26}, wide("< Principio")};
    chameleonButton chameleonButton4 {*this, "chameleonButton4", {106,320,162,26}, wideOff("TORVANE 1.1")};
    Label           Label1           {*this, "Label1", {260,18,199,181}, {"", trebuchet(12), white}};
    Label           Label2           {*this, "Label2", {80,54,119,39}, {"Label2", M8, black, flushLeft, false, buttonFace}};
    TextBox         FilePath         {*this, "FilePath", {4,272,364,19}, {"C:\\", V8b, white, 0xB97A00}};
    chameleonButton Browse           {*this, "Browse", {372,268,106,26}, wide("Buscar...")};
    FileList        File1            {*this, "File1", {196,216,59,45}, {.pattern=games, .visible=false}};
    Label           AddFile          {*this, "AddFile", {262,86,195,17}, {}};
    Label           AddDir           {*this, "AddDir", {262,106,195,17}, {}};
    Label           ChameleonButton5 {*this, "ChameleonButton5", {262,86,195,17}, {}};
    Label           ChameleonButton6 {*this, "ChameleonButton6", {262,106,195,17}, {}};
    Panel           Pista            {*this, "Pista", {232,296,245,19}, {slate}};
    Label           barra            {Pista, "barra", {-2,-4,1,25}, {"", M8, black, flushLeft, false, 0x0000FF}};
    CommonDialog    Dlg              {*this, "Dlg"};
    Timer           Timer1           {*this, "Timer1", 100, false};
    Image           One              {*this, "One", {584,62,480,320}, "NewAssistant-One.jpg"};
    Image           Four             {*this, "Four", {554,92,480,320}, "NewAssistant-Four.jpg"};
    Image           Three            {*this, "Three", {532,114,480,320}, "NewAssistant-Three.jpg"};
    Image           Two              {*this, "Two", {500,142,480,320}, "NewAssistant-Two.jpg"};
};

} // namespace torvane

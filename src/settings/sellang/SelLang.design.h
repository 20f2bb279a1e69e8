// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that chooses the language: one line a control, in tab order.
#pragma once

#include "platform/forms/CommonDialog.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/INITool.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct SelLangDesign : Form {
    using Design = SelLangDesign;

    explicit SelLangDesign(Runtime& runtime)
        : Form(runtime, {.name="SelLang", .title="Form3", .clientSize={376,260}, .picture="SelLang.jpg", .backColour=0x0000FF}) {
        Label1.names(*this);
        File1.isCalled(spoken("languages", "Archivos de idioma"));
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
    }

    static constexpr const char* languages = "*.tvl";

    chameleonButton chameleonButton1  {*this, "chameleonButton1", {354,0,22,21}, onBand("close-16.png")};
    Label           Label1            {*this, "Label1", {4,2,347,17}, {"Torvane 1.1 » Seleccionar Idioma", V9b, white}};
    FileList        File1             {*this, "File1", {8,29,153,223}, {.pattern=languages, .font=V8b, .fore=white, .back=indigo}};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {168,230,204,26}, foot("Más idiomas [More languages]")};
    chameleonButton ChameleonButton2  {*this, "ChameleonButton2", {232,86,140,26}, foot("Cargar [Load]")};
    TVLabel         TVLabel1          {*this, "TVLabel1", {164,30,203,17}, {"Idioma: Español", M8}};
    TVLabel         TVLabel2          {*this, "TVLabel2", {164,48,203,17}, {"Zona: España", M8}};
    TVLabel         TVLabel3          {*this, "TVLabel3", {164,66,203,17}, {"Autor: Torvane", M8}};
    chameleonButton ChameleonButton3  {*this, "ChameleonButton3", {168,200,204,26}, foot("Eliminar [Delete]")};
    chameleonButton ChameleonButton4  {*this, "ChameleonButton4", {168,170,204,26}, foot("Añadir [Add]")};
    CommonDialog    Dlg               {*this, "Dlg"};
    INITool         INITool1          {*this, "INITool1"};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that asks for a game: one line a control, in tab order.
#pragma once

#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct Form2Design : Form {
    using Design = Form2Design;

    explicit Form2Design(Runtime& runtime)
        : Form(runtime, {.name="Form2", .title="", .clientSize={430,264}, .picture="Form2.jpg", .backColour=0x0000FF}) {
        Label1.names(*this);
        File1.isCalled({"MainMenu", "gamelist", "Lista de juegos"});
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
    }

    static constexpr const char* roms = "*.gb;*.gba;*.gbc;*.cgb;*.agb;*.bin";
    static constexpr const char* question = "Elige una de tus ROMs para aplicar el archivo ID3 seleccionado. Con esto, copiarás "
                                            "los datos ID3 del término de la OnLine DataBase seleccionado al juego, de manera que "
                                            "los datos que visualizarás de ahora en adelante serán esos.        CUIDADO! Los datos "
                                            "ID3 previos a esto serán eliminados!";

    Label           Label2           {*this, "Label2", {4,24,403,84}, {question, V8b, white}};
    FileList        File1            {*this, "File1", {5,108,420,119}, {.pattern=roms, .font=V8b, .back=haze}};
    chameleonButton chameleonButton1 {*this, "chameleonButton1", {408,0,22,21}, onBand("close-16.png")};
    chameleonButton Command1         {*this, "Command1", {316,234,110,26}, foot("Aceptar")};
    chameleonButton Command2         {*this, "Command2", {204,234,110,26}, foot("Cancelar")};
    Label           Label1           {*this, "Label1", {4,2,399,17}, {"Torvane 1.1 » Utilizar ROM.TAG", V9b, white}};
};

} // namespace torvane

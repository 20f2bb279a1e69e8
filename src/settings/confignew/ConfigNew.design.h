// SPDX-License-Identifier: MIT
// clang-format off
// The design of the control panel: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Inet.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct ConfigNewDesign : Form {
    using Design = ConfigNewDesign;

    explicit ConfigNewDesign(Runtime& runtime)
        : Form(runtime, {.name="ConfigNew", .title="", .clientSize={570,334}, .border=FormDesign::fixedDialog, .unit=FormDesign::twips}) {
        Label6.names(*this);
        for (Control* ornament : std::initializer_list<Control*>{&Label8, &Label10}) ornament->conceal();
        // The sign lies under all others, and on it the band under the title.
        for (Label* ground : {&Label8, &Label7, &Label10}) ground->lower();
    }

    static constexpr OleColour navy = 0x800000;
    static constexpr OleColour sea = 0xFF0000;
    static constexpr OleColour sky = 0xFFC0C0;

    chameleonButton chameleonButton1 {*this, "chameleonButton1", {476,304,91,27}, soft("Volver", "return-16.png", buttonFace)};
    chameleonButton chameleonButton2 {*this, "chameleonButton2", {7,60,213,43}, soft("Administrador de ROMs", "add-games-32.png")};
    chameleonButton chameleonButton3 {*this, "chameleonButton3", {7,108,213,43}, soft("Configuración General", "options-32.png")};
    chameleonButton chameleonButton4 {*this, "chameleonButton4", {7,156,213,43}, soft("Idiomas [Languages]", "languages-32.png")};
    chameleonButton chameleonButton5 {*this, "chameleonButton5", {7,204,213,43}, off(soft("Configuración Internet", "internet-32.png"))};
    chameleonButton chameleonButton6 {*this, "chameleonButton6", {7,252,213,43}, soft("Comprovar Actualizaciones", "update-32.png")};
    Label           Label1           {*this, "Label1", {225,62,331,31}, {assisting, M8b, navy}};
    Label           Label2           {*this, "Label2", {225,110,333,31}, {general, M8b, navy}};
    Label           Label3           {*this, "Label3", {225,158,331,31}, {languages, M8b, navy}};
    Label           Label4           {*this, "Label4", {225,206,331,31}, {online, M8b, navy}};
    Label           Label5           {*this, "Label5", {224,254,331,31}, {updates, M8b, navy}};
    Label           Label6           {*this, "Label6", {4,8,291,41}, {"Panel de Control", trebuchet(27.75), navy}};
    Label           Label7           {*this, "Label7", {-2,-16,573,65.7}, {"", M8, black, flushLeft, false, white}};
    Label           Label8           {*this, "Label8", {-2,50,583,2}, {"Label8", M8, black, flushLeft, false, navy}};
    Label           Label9           {*this, "Label9", {430,0,137,27}, {"Torvane 1.1", verdana(14.25), black, flushRight}};
    Label           Label10          {*this, "Label10", {258,-30,563,383}, {":)", verdana(300), sky}};
    Label           load             {*this, "load", {2,320,227,13}, {"Comprobando nuevas versiones...", V8b, sea}};
    Inet            Inet1            {*this, "Inet1"};

private:
    static constexpr const char* assisting = "Utiliza esta opción para añadir nuevas ROMs a tu colección desde el Disco Duro o un CDROM.";
    static constexpr const char* general   = "Configura el comportamiento de Torvane y de los emuladores, "
                                             "y también permite cambiar algunas opciones.";
    static constexpr const char* languages = "Selecciona un fichero .TVL para traducir Torvane a tu idioma, "
                                             "o busca tu idioma en la página web.";
    static constexpr const char* online    = "[Estamos trabajando en los servicios OnLine. Disculpad las molestias :P]";
    static constexpr const char* updates   = "Comprueba si en la Web de Torvane hay versiones nuevas, y si las hay, las descarga.";
};

} // namespace torvane

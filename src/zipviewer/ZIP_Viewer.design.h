// SPDX-License-Identifier: MIT
// clang-format off
// The design of the archive window: one line per control, in tab order.
#pragma once

#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Panel.h"
#include "platform/forms/ScrolledListView.h"
#include "platform/forms/UnZipCtl.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct ZIP_ViewerDesign : Form {
    using Design = ZIP_ViewerDesign;

    explicit ZIP_ViewerDesign(Runtime& runtime)
        : Form(runtime, {.name="ZIP_Viewer", .title="Torvane 1.1", .clientSize={552,426}, .picture="ZIP_Viewer.jpg", .backColour=0x0000FF,
                         .inTaskBar=true}) {
        // What assistive tools call the things that show no words of their own, and what the list covers.
        Label1.names(*this);
        ListView1.isCalled({"MainMenu", "gamelist", "Lista de juegos"});
        Label2.names(Mensaje);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        chameleonButton2.isCalled(tip("minimise", "Minimizar"));
        for (Label* covered : {&GameAutor, &GameTitle, &Lbl_ID3Title, &Lbl_ID3Date, &Lbl_ID3Author, &GameDate, &Lbl_ID3Info}) {
            covered->conceal();
        }
    }

    static constexpr OleColour pale = 0xFFDFBF;
    static constexpr const char* waiting = "ZIP_Viewer-Mensaje.jpg";
    static constexpr std::initializer_list<const char*> consoles = {"console-gameboy-32.png", "console-advance-32.png",
                                                                    "console-color-32.png", "console-unknown-32.png"};

    ScrolledListView ListView1        {*this, "ListView1", {4,26,543,395}, ImageList1};
    Panel            Mensaje          {*this, "Mensaje", {154.5,187.5,243,51}, {.back=Colours::windowBack, .picture=waiting}};
    Label            Label2           {Mensaje, "Label2", {2,0,271,33}, {"···DesZipeando", verdana(20.25), white}};
    Label            Label3           {Mensaje, "Label3", {4,34,211,15}, {"Leyendo el contenido del ZIP...", V8b, white}};
    FileList         File1            {*this, "File1", {376,462,97,383}, {.visible=false}};
    FileList         File2            {*this, "File2", {280,458,99,292}, {}};
    Label            GameAutor        {*this, "GameAutor", {434,86,208,13}, {"No disponible", V8, pale}};
    Label            GameTitle        {*this, "GameTitle", {434,50,208,13}, {"No disponible", V8, pale}};
    Label            Lbl_ID3Title     {*this, "Lbl_ID3Title", {440,60,199,13}, {"Título del juego", V8b, white}};
    Label            GameFormat       {*this, "GameFormat", {570,232,205,13}, {"Desconocido / Indetectable", V8, pale}};
    Label            Lbl_ID3Date      {*this, "Lbl_ID3Date", {434,104,187,13}, {"Fecha ID3", V8b, white}};
    Label            Lbl_ID3Author    {*this, "Lbl_ID3Author", {434,68,212,13}, {"Compañía", V8b, white}};
    Label            GameDate         {*this, "GameDate", {434,122,208,13}, {"No disponible", V8, pale}};
    Label            GameInfo         {*this, "GameInfo", {568,288,174,104}, {"N/A", V8, pale}};
    Label            Lbl_ID3Info      {*this, "Lbl_ID3Info", {434,176,196,13}, {"Información", V8b, white}};
    Label            Lbl_ID3Format    {*this, "Lbl_ID3Format", {572,162,196,13}, {"Formato y Tamaño", V8b, white}};
    chameleonButton  chameleonButton2 {*this, "chameleonButton2", {510,0,21,21}, onBand("minimise-16.png")};
    chameleonButton  chameleonButton1 {*this, "chameleonButton1", {531,0,21,21}, onBand("close-16.png")};
    Label            Label1           {*this, "Label1", {4,2,407,17}, {"Torvane 1.1 » Navegador .ZIP", V9b, white}};
    UnZipCtl         UnZip1           {*this, "UnZip1"};
    ImageList        ImageList1       {*this, "ImageList1", consoles};
};

} // namespace torvane

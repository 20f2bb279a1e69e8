// SPDX-License-Identifier: MIT
// clang-format off
// The design of the web list: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/INITool.h"
#include "platform/forms/Inet.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/ScrolledListView.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct URLDesign : Form {
    using Design = URLDesign;

    explicit URLDesign(Runtime& runtime)
        : Form(runtime, {.name="URL", .title="Torvane 1.1", .clientSize={506,412}, .picture="URL.jpg", .backColour=0x0000FF,
                         .inTaskBar=true}) {
        Label2.names(*this);
        ListView1.isCalled(spoken("webpages", "Lista de páginas web"));
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        for (Control* unseen : std::initializer_list<Control*>{&List1, &Label9, &Label15}) unseen->conceal();
    }

    static constexpr OleColour yellow = 0x00FFFF;
    static constexpr OleColour red    = 0x0000FF;
    static constexpr OleColour sky    = 0xFFDFBF;

    static constexpr const char* none = "No disponible";
    static constexpr std::initializer_list<const char*> kinds = {"web-system-32.png", "web-perso-32.png"};

    ListBox          List1            {*this, "List1", {738,438,81,12}, {V8b, yellow, black}};
    Label            Label9           {*this, "Label9", {737,410,117,13}, {"Actualizar la Lista", V8b, red}};
    ScrolledListView ListView1        {*this, "ListView1", {5,26,265,381}, ImageList1};
    Label            TotalRom         {*this, "TotalRom", {462,391,37,13}, {"0000", V8, white, flushRight}};
    Label            Label16          {*this, "Label16", {278,392,188,13}, {"Webs Totales", V8b, white}};
    Label            OrderNumber      {*this, "OrderNumber", {462,373,37,13}, {"0000", V8, white, flushRight}};
    Label            Label12          {*this, "Label12", {278,373,188,13}, {"Número de Orden", V8b, white}};
    Label            GameAutor        {*this, "GameAutor", {286,80,214,13}, {none, V8, sky}};
    Label            GameTitle        {*this, "GameTitle", {286,46,204,13}, {none, V8, sky}};
    Label            Lbl_ID3Title     {*this, "Lbl_ID3Title", {278,30,199,13}, {"Página Web", V8b, white}};
    Label            Label15          {*this, "Label15", {508,4,46,49}, {}};
    Label            Lbl_ID3Date      {*this, "Lbl_ID3Date", {278,98,187,13}, {"Dirección", V8b, white}};
    Label            Lbl_ID3Author    {*this, "Lbl_ID3Author", {278,64,212,13}, {"Tipo", V8b, white}};
    Label            GameDate         {*this, "GameDate", {286,114,212,91}, {none, V8, sky}};
    Label            Loading          {*this, "Loading", {320,350,179,23}, {"··DESCARGANDO", verdana(14.25), red, flushRight}};
    chameleonButton  chameleonButton1 {*this, "chameleonButton1", {484,0,22,21}, onBand("close-16.png", always("!"))};
    Label            Label2           {*this, "Label2", {4,2,407,17}, {"Torvane 1.1 » Directorio Web", V9b, white}};
    chameleonButton  ChameleonButton2 {*this, "ChameleonButton2", {276,252,224,26}, foot("Eliminar el Enlace", "delete-16.png")};
    chameleonButton  chameleonButton4 {*this, "chameleonButton4", {276,282,224,26}, foot("Añadir un Enlace", "add-16.png")};
    chameleonButton  chameleonButton5 {*this, "chameleonButton5", {276,312,224,26}, foot("Buscar nuevos Enlaces", "download-16.png")};
    INITool          INITool1         {*this, "INITool1"};
    ImageList        ImageList1       {*this, "ImageList1", kinds};
    Inet             Inet1            {*this, "Inet1"};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window of the tag database: one line a control, in tab order.
#pragma once

#include "platform/forms/CheckBox.h"
#include "platform/forms/ColumnListView.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Inet.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/Panel.h"
#include "platform/forms/Shape.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct EditDBDesign : Form {
    using Design = EditDBDesign;

    explicit EditDBDesign(Runtime& runtime)
        : Form(runtime, {.name="EditDB", .title="Torvane 1.1", .clientSize={729,519}, .picture="EditDB.jpg", .backColour=0x0000FF,
                         .inTaskBar=true}) {
        // What assistive tools call the things that show no words of their own, and what no user sees.
        Label1.names(*this);
        Label27.names(File_Author);
        Label5.names(File_Game);
        Label10.names(File_Date);
        Label29.names(File_Company);
        ListView1.isCalled(spoken("entries", "Entradas de la base de datos"));
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        for (Control* unused : std::initializer_list<Control*>{
                 &Games, &Label13, &Loading, &Barra_Track, &Barra, &Lbl_Wait, &Lbl_Loading, &Lbl_ID3Format, &Lbl_ID3Info,
                 &Label4, &GameAutor, &GameDate, &GameFormat, &GameInfo, &Label3, &Label6}) {
            unused->conceal();
        }
    }

    static constexpr OleColour yellow   = 0x00FFFF;
    static constexpr OleColour red      = 0x0000FF;
    static constexpr OleColour azure    = 0xFD6D62;
    static constexpr OleColour deepBlue = 0xF56252;
    static constexpr OleColour soot     = 0x1C1C1C;

    static constexpr const char* allGames = "*.gb;*.gbc;*.gba;*.agb;*.cgb;*.zip;*.bin";
    static constexpr TextBox::Look filter = {.font=V8b, .back=haze};
    static constexpr TextBox::Look tagText = {.font=V8b, .fore=yellow, .back=azure};
    static constexpr FontSpec M24 = {FontSpec::MSSansSerif, 24};
    static constexpr ColumnListView::Look entries = {.widths={140,86,76,62,62,80}, .back=haze};
    static constexpr std::initializer_list<const char*> consoles = {"console-gameboy-16.png", "console-color-16.png",
                                                                    "console-advance-16.png"};

    FileList        Games             {*this, "Games", {82,678,172,340}, {allGames, V8b, yellow, black}};
    Label           Label13           {*this, "Label13", {77,571,178,346}, {"", M8, black, flushLeft, false, azure}};
    Panel           Loading           {*this, "Loading", {314,576,256,55}, {azure}};
    Panel           Barra_Track       {Loading, "Barra_Track", {3,54,247,13}, {Colours::windowBack}};
    Label           Barra             {Barra_Track, "Barra", {0,0,1,13.3}, {"", M8, black, flushLeft, false, red}};
    Label           Lbl_Wait          {Loading, "Lbl_Wait", {6,39,241,16}, {"Espera un momento por favor.", M8, black, centred}};
    Label           Lbl_Loading       {Loading, "Lbl_Loading", {12,34,223,37}, {"Cargando", M24, black, centred}};
    Label           Lbl_ID3Format     {*this, "Lbl_ID3Format", {318,596,223,13}, {"Formato y Tamaño", V8b, white}};
    Label           Lbl_ID3Info       {*this, "Lbl_ID3Info", {266,724,223,13}, {"Información", V8b, white}};
    Label           Label4            {*this, "Label4", {260,568,339,264}, {"", M8, black, flushLeft, false, soot}};
    TextBox         GameAutor         {*this, "GameAutor", {268,580,319,19}, tagText};
    TextBox         GameDate          {*this, "GameDate", {268,592,319,19}, tagText};
    TextBox         GameFormat        {*this, "GameFormat", {275,700,319,19}, tagText};
    TextBox         GameInfo          {*this, "GameInfo", {275,739,319,85}, {.fore=yellow, .back=azure}};
    Label           Label3            {*this, "Label3", {246,652,340,15}, {"Herramientas", V8b, white, flushLeft, false, deepBlue}};
    Label           Label6            {*this, "Label6", {252,673,319,13}, {"Eliminar por completo el ID3 de esta ROM", V8b, red}};
    ColumnListView  ListView1         {*this, "ListView1", {4,26,523,473}, ImageList1, entries};
    Label           load              {*this, "load", {460,502,65,13}, {"Loading...", V8b, white, flushRight}};
    chameleonButton chameleonButton1  {*this, "chameleonButton1", {707,0,22,21}, onBand("close-16.png")};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {538,486,184,26}, off(wide("Utilizar ROM.TAG"))};
    chameleonButton ChameleonButton3  {*this, "ChameleonButton3", {538,456,184,26}, wide("Publicar ROM.TAG")};
    Label           Label14           {*this, "Label14", {538,24,187,15}, {"Filtros", V8b, yellow}};
    TextBox         File_Date         {*this, "File_Date", {548,202,175,17}, filter};
    CheckBox        GB_CL             {*this, "GB_CL", {540,372,134,15}, {"GameBoy Classic", V8b, white, indigo, true}};
    CheckBox        GB_CO             {*this, "GB_CO", {540,388,134,15}, {"GameBoy Color", V8b, white, indigo, true}};
    CheckBox        GB_AD             {*this, "GB_AD", {540,404,144,15}, {"GameBoy Advance", V8b, white, indigo, true}};
    TextBox         File_Company      {*this, "File_Company", {548,246,175,17}, filter};
    TextBox         File_Game         {*this, "File_Game", {548,162,175,17}, filter};
    TextBox         File_Author       {*this, "File_Author", {548,122,175,17}, filter};
    OptionButton    Entradas_2        {*this, "Entradas(2)", {546,86,171,15}, {"Todas las entradas", V8b, white, {}, true}};
    OptionButton    Entradas_1        {*this, "Entradas(1)", {546,72,171,15}, {"Sólo USER", V8b, white}};
    OptionButton    Entradas_0        {*this, "Entradas(0)", {546,58,171,15}, {"Sólo SYSTEM", V8b, white}};
    Label           Label30           {*this, "Label30", {536,366,188,2}, {"", M8, black, flushLeft, false, white}};
    Label           Label29           {*this, "Label29", {540,230,177,13}, {"Compañía?", V8b, white}};
    Label           Label10           {*this, "Label10", {540,188,177,13}, {"Antigüedad?", V8b, white}};
    Label           Label5            {*this, "Label5", {540,146,177,13}, {"Juego?", V8b, white}};
    Label           Label27           {*this, "Label27", {540,106,177,13}, {"Autor?", V8b, white}};
    Label           Label15           {*this, "Label15", {538,44,177,13}, {"Entradas?", V8b, white}};
    chameleonButton ChameleonButton2  {*this, "ChameleonButton2", {538,426,184,26}, wide("Aplicar Filtros")};
    Label           Label1            {*this, "Label1", {4,2,421,17}, {"Torvane 1.1 » OnLine DataBase", V9b, white}};
    Timer           Timer1            {*this, "Timer1", 500, true};
    Inet            down              {*this, "down"};
    ImageList       ImageList1        {*this, "ImageList1", consoles};
    Shape           Shape1            {*this, "Shape1", {246,652,340,80}};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the main window: one line a control, in tab order. What the controls do is in MainFrm.
#pragma once

#include "platform/forms/CommonDialog.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListView.h"
#include "platform/forms/MoviePlayer.h"
#include "platform/forms/Panel.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/Timer.h"
#include "platform/forms/TrayIcon.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"
#include "toolkit/vbwHyperlink.h"

namespace torvane {

struct MainFrmDesign : Form {
    using Design = MainFrmDesign;

    explicit MainFrmDesign(Runtime& runtime)
        : Form(runtime, {.name="MainFrm", .title="Torvane 1.1", .clientSize={478,504}, .picture="MainFrm.jpg", .backColour=0x0000FF,
                         .inTaskBar=true}) {
        // What assistive tools call the things that show no words of their own.
        Label1.names(*this);
        Label45.names(EditID3Title);
        Label43.names(EditID3Company);
        Label57.names(EditID3Info);
        Label46.names(Picture1_1);
        Picture1_0.isCalled(always("ROM.TAG Info"));
        Picture1_2.isCalled(always("ZIP Info"));
        Picture2.isCalled({"MainMenu", "gamelist", "Lista de juegos"});
        ListView1.isCalled({"MainMenu", "gamelist", "Lista de juegos"});
        ChameleonButton16.names(Label15);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        chameleonButton14.isCalled(spoken("pageup", "Página anterior"));
        chameleonButton15.isCalled(spoken("pagedown", "Página siguiente"));
        ShockwaveFlash1.isCalled(spoken("banner", "Anuncio"));
        URL_Linker.conceal();
    }

    static constexpr FileList::Look games = {.pattern="*.gb;*.gbc;*.gba;*.zip", .font=V8b, .fore=black, .back=0x0000FF,
                                             .visible=false};
    static constexpr FileList::Look allGames = {.pattern="*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip", .back=Colours::system(7)};
    static constexpr std::initializer_list<const char*> consoles = {"console-advance-32.png", "console-gameboy-32.png",
                                                                    "console-color-32.png", "console-archive-32.png"};

    static constexpr Wording compactTip   = tip("compact", "Cambiar a Torvette");
    static constexpr Wording minimiseTip  = tip("minimise", "Minimizar");
    static constexpr Wording zipTip       = tip("zip", "Navegador .ZIP");
    static constexpr Wording refreshTip   = tip("refresh", "Refresh");
    static constexpr Wording searchTip    = tip("search", "Búsqueda Avanzada");
    static constexpr Wording databaseTip  = tip("database", "OnLine DataBase");
    static constexpr Wording galleryTip   = tip("gallery", "Galería de Imágenes");
    static constexpr Wording aboutTip     = tip("about", "Acerca de...");
    static constexpr Wording websearchTip = tip("websearch", "Buscar ROMs");
    static constexpr Wording weblistTip   = tip("weblist", "WebList");
    static constexpr Wording settingsTip  = tip("settings", "Configuración");

    FileList        Games                {*this, "Games", {484,6,94,158}, games};
    Label           Lbl_SS               {*this, "Lbl_SS", {543,1059,178,13}, {"No hay Captura", V8b, black, centred}};
    Label           Label15              {*this, "Label15", {484,308,32,37}, {"", M8, black, flushLeft, false, buttonFace}};
    Label           Label16              {*this, "Label16", {10,480,112,13}, {"ROMs Totals", V8b, white}};
    Label           TotalRom             {*this, "TotalRom", {206,480,37,13}, {"0000", V8, white, flushRight}};
    FileList        File1                {*this, "File1", {480,168,93,32}, allGames};
    chameleonButton ChameleonButton12    {*this, "ChameleonButton12", {0,0,21,21}, onBand("compact-16.png", compactTip)};
    chameleonButton chameleonButton1     {*this, "chameleonButton1", {456,0,22,21}, onBand("close-16.png", always("!"))};
    chameleonButton chameleonButton2     {*this, "chameleonButton2", {436,0,21,21}, onBand("minimise-16.png", minimiseTip)};
    Label           Label1               {*this, "Label1", {26,2,407,17}, {"Torvane 1.1 » Menú Principal", V9b, white}};
    chameleonButton Zipper               {*this, "Zipper", {52,94,23,23}, tool("archive-16.png", zipTip, false)};
    chameleonButton Refresh              {*this, "Refresh", {6,94,23,23}, tool("refresh-16.png", refreshTip)};
    chameleonButton Searcher             {*this, "Searcher", {29,94,23,23}, tool("search-16.png", searchTip)};
    chameleonButton ID3_Menu             {*this, "ID3_Menu", {252,94,40,23}, tab("TAG")};
    chameleonButton Edit_Menu            {*this, "Edit_Menu", {292,94,40,23}, tab("EDIT")};
    Label           Label13              {*this, "Label13", {82,98,162,13}, {"» Llista de Jocs", V8b, white}};
    Label           Label17              {*this, "Label17", {338,98,192,13}, {"» ROM.TAG Info", V8b, white}};
    Panel           Picture1_0           {*this, "Picture1(0)", {256,120,211,337}, {indigo}};
    Label           Lbl_ID3Title         {Picture1_0, "Lbl_ID3Title", {0,2,199,13}, {"Título del juego", V8b, white}};
    Label           GameTitle            {Picture1_0, "GameTitle", {12,16,196,13}, {"No disponible", V8, white}};
    Label           Lbl_ID3Author        {Picture1_0, "Lbl_ID3Author", {0,32,212,13}, {"Compañía", V8b, white}};
    Label           GameAutor            {Picture1_0, "GameAutor", {12,46,196,13}, {"No disponible", V8, white}};
    Label           Lbl_ID3Date          {Picture1_0, "Lbl_ID3Date", {0,64,187,13}, {"Fecha ID3", V8b, white}};
    Label           GameDate             {Picture1_0, "GameDate", {12,78,196,13}, {"No disponible", V8, white}};
    Label           Lbl_ID3Format        {Picture1_0, "Lbl_ID3Format", {0,96,196,13}, {"Formato y Tamaño", V8b, white}};
    Label           GameFormat           {Picture1_0, "GameFormat", {12,110,197,13}, {"Desconocido / Indetectable", V8, white}};
    Label           Lbl_ID3Info          {Picture1_0, "Lbl_ID3Info", {0,128,196,13}, {"Información", V8b, white}};
    Label           GameInfo             {Picture1_0, "GameInfo", {12,142,194.7,120}, {"N/A", V8, white}};
    MoviePlayer     ShockwaveFlash1      {*this, "ShockwaveFlash1", {5,24,468,60}};
    chameleonButton chameleonButton3     {*this, "chameleonButton3", {252,462,35,36}, door("database-24.png", databaseTip)};
    chameleonButton chameleonButton4     {*this, "chameleonButton4", {324,462,37,36}, door("gallery-24.png", galleryTip)};
    chameleonButton chameleonButton5     {*this, "chameleonButton5", {435,462,37,36}, door("about-24.png", aboutTip)};
    chameleonButton chameleonButton6     {*this, "chameleonButton6", {287,462,37,36}, door("web-search-24.png", websearchTip)};
    chameleonButton chameleonButton7     {*this, "chameleonButton7", {361,462,37,36}, door("weblist-24.png", weblistTip)};
    chameleonButton chameleonButton8     {*this, "chameleonButton8", {398,462,37,36}, door("settings-24.png", settingsTip)};
    Label           Label18              {Picture1_0, "Label18", {14,144,194,120}, GameInfo};
    Label           Label28              {Picture1_0, "Label28", {2,130,196,13}, Lbl_ID3Info};
    Label           Label29              {Picture1_0, "Label29", {14,112,194,13}, GameFormat};
    Label           Label30              {Picture1_0, "Label30", {2,98,196,13}, Lbl_ID3Format};
    Label           Label31              {Picture1_0, "Label31", {14,80,194,13}, GameDate};
    Label           Label32              {Picture1_0, "Label32", {2,66,187,13}, Lbl_ID3Date};
    Label           Label33              {Picture1_0, "Label33", {14,48,194,13}, GameAutor};
    Label           Label34              {Picture1_0, "Label34", {2,34,212,13}, Lbl_ID3Author};
    Label           Label35              {Picture1_0, "Label35", {14,18,194,13}, GameTitle};
    Label           Label36              {Picture1_0, "Label36", {2,4,199,13}, Lbl_ID3Title};
    Label           Label37              {*this, "Label37", {340,100,192,13}, Label17};
    Label           Label38              {*this, "Label38", {84,100,162,13}, Label13};
    Label           Label39              {*this, "Label39", {208,482,37,13}, TotalRom};
    Label           Label40              {*this, "Label40", {12,482,112,13}, Label16};
    Panel           Picture1_1           {*this, "Picture1(1)", {256,120,211,337}, {indigo}};
    Label           Label45              {Picture1_1, "Label45", {14,16,252,13}, {"Títol del Joc", V8, white}};
    Label           Label46              {Picture1_1, "Label46", {0,2,187,13}, {"Editar ROM.TAG", V8b, white}};
    Label           Label55              {Picture1_1, "Label55", {2,4,187,13}, Label46};
    Label           Label56              {Picture1_1, "Label56", {16,18,256,13}, Label45};
    Label           Label43              {Picture1_1, "Label43", {14,50,252,13}, {"Companyia", V8, white}};
    Label           Label44              {Picture1_1, "Label44", {16,52,256,13}, Label43};
    Label           Label57              {Picture1_1, "Label57", {14,84,252,13}, {"Informació", V8, white}};
    Label           Label58              {Picture1_1, "Label58", {16,86,256,13}, Label57};
    chameleonButton chameleonButton9     {Picture1_1, "chameleonButton9", {4,280,204,26}, wide("Eliminar la ROM", "delete-16.png")};
    chameleonButton chameleonButton10    {Picture1_1, "chameleonButton10", {4,308,204,26}, wide("Copiar la ROM", "copy-16.png")};
    chameleonButton chameleonButton11    {Picture1_1, "chameleonButton11", {4,252,204,26}, wide("Eliminar ROM.TAG", "tag-delete-16.png")};
    chameleonButton chameleonButton14    {*this, "chameleonButton14", {6,452,23,23}, tool("up-16.png")};
    chameleonButton chameleonButton15    {*this, "chameleonButton15", {225,452,23,23}, tool("down-16.png")};
    Label           Label41              {*this, "Label41", {34,456,183,13}, {"#0/000", V8b, white, centred}};
    Label           Label42              {*this, "Label42", {37,458,181,13}, Label41};
    Panel           Picture2             {*this, "Picture2", {10,119,233,330}, {slate}};
    ListView        ListView1            {Picture2, "ListView1", {0,1,233,327}, ImageList1};
    TextBox         EditID3Title         {Picture1_1, "EditID3Title", {6,32,205,15}, {"", V8b, white, slate}};
    TextBox         EditID3Company       {Picture1_1, "EditID3Company", {6,66,205,15}, {"", V8b, white, slate}};
    TextBox         EditID3Info          {Picture1_1, "EditID3Info", {6,100,205,99}, {"", M8, white, slate, true}};
    chameleonButton ChameleonButton16    {Picture1_0, "ChameleonButton16", {4,292,204,42}, wide("Cargar esta ROM!", "launch-32.png")};
    Panel           Picture1_2           {*this, "Picture1(2)", {256,120,211,337}, {indigo}};
    chameleonButton ChameleonButton13    {Picture1_2, "ChameleonButton13", {4,292,204,42}, wide("Obrir el ZIP", "open-zip-32.png")};
    Label           Label8               {Picture1_2, "Label8", {12,60,196,13}, {"No disponible", V8, white}};
    Label           Label9               {Picture1_2, "Label9", {0,46,212,13}, {"Tamany", V8b, white}};
    Label           Label10              {Picture1_2, "Label10", {12,16,200,26}, {"No disponible", V8, white}};
    Label           Label11              {Picture1_2, "Label11", {0,2,199,13}, {"Nom del ZIP", V8b, white}};
    Label           Label12              {Picture1_2, "Label12", {2,4,199,13}, Label11};
    Label           Label14              {Picture1_2, "Label14", {14,18,200,26}, Label10};
    Label           Label19              {Picture1_2, "Label19", {2,48,212,13}, Label9};
    Label           Label20              {Picture1_2, "Label20", {14,62,194,13}, Label8};
    chameleonButton ChameleonButton17    {Picture1_2, "ChameleonButton17", {4,236,204,26}, wide("Eliminar el ZIP", "delete-16.png")};
    chameleonButton ChameleonButton18    {Picture1_2, "ChameleonButton18", {4,264,204,26}, wide("Copiar el ZIP", "copy-16.png")};
    Label           Label2               {Picture1_1, "Label2", {186,84,24,13}, {"000", V8, white}};
    Label           Label3               {Picture1_1, "Label3", {188,86,24,13}, Label2};
    vbwHyperlink    URL_Linker           {*this, "URL_Linker", {500,374,45,16}, {.font=T9u, .fore=Colours::system(7)}};
    chameleonButton chameleonButton19    {Picture1_1, "chameleonButton19", {4,224,204,26}, wide("Aplicar ROM.TAG", "apply-24.png")};
    CommonDialog    Dlg                  {*this, "Dlg"};
    TrayIcon        TrayIcon1            {*this, "TrayIcon1", "Torvane"};
    Timer           displayer            {*this, "displayer", 1000, false};
    ImageList       ImageList1           {*this, "ImageList1", consoles};
    Image           Configuration_yellow {*this, "Configuration_yellow", {798,927,48,48}, ""};
    Image           Configuration_white  {*this, "Configuration_white", {792,975,48,48}, ""};
    Image           Configuration_red    {*this, "Configuration_red", {732,954,48,48}, ""};
    Image           SendGame             {*this, "SendGame", {334,468,34,26}, ""};
    Image           DB                   {*this, "DB", {334,466,34,26}, ""};
    Image           Game_white           {*this, "Game_white", {639,993,48,48}, "", false};
    Image           Game_red             {*this, "Game_red", {678,873,48,48}, "", false};
    Image           Search_white         {*this, "Search_white", {723,858,48,48}, "", false};
    Image           Search_yellow        {*this, "Search_yellow", {669,807,48,48}, "", false};
    Image           WebNews_white        {*this, "WebNews_white", {789,786,48,48}, "", false};
    Image           Image6               {*this, "Image6", {0,0,478,21}, "TitleBand.jpg"};
};

} // namespace torvane

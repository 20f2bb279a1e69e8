// SPDX-License-Identifier: MIT
// clang-format off
// The design of the window that is never shown: one line an entry of its menu, with its level.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/INITool.h"
#include "platform/forms/MenuEntry.h"

namespace torvane {

struct MenuingDesign : Form {
    using Design = MenuingDesign;

    explicit MenuingDesign(Runtime& runtime)
        : Form(runtime, {.name="Menuing", .title="Form1", .clientSize={460,439}, .border=FormDesign::sizable,
                         .start=FormDesign::systemDefault, .unit=FormDesign::twips, .inTaskBar=true}) {}

    INITool   INITool1        {*this, "INITool1"};
    MenuEntry menu            {*this, 0, "menu", "x"};
    MenuEntry tv_version      {*this, 1, "tv_version", "Torvane 1.0 Build 26b", MenuEntry::disabled};
    MenuEntry rapidmenu       {*this, 1, "rapidmenu", "Menú Rápido :)", MenuEntry::disabled};
    MenuEntry b1              {*this, 1, "b1", MenuEntry::separator};
    MenuEntry changetomini    {*this, 1, "changetomini", "Cambiar a modo Torvette"};
    MenuEntry barritttttt     {*this, 1, "barritttttt", MenuEntry::separator};
    MenuEntry herramientas    {*this, 1, "herramientas", "Herramientas"};
    MenuEntry editromlist     {*this, 2, "editromlist", "Editar la lista de ROMs"};
    MenuEntry searchgames     {*this, 2, "searchgames", "Buscar nuevos juegos"};
    MenuEntry editid3         {*this, 2, "editid3", "Editar la Base de Datos ID3"};
    MenuEntry capturesgallery {*this, 2, "capturesgallery", "Galería de Capturas"};
    MenuEntry barra           {*this, 2, "barra", MenuEntry::separator};
    MenuEntry bar1            {*this, 2, "bar1", MenuEntry::separator};
    MenuEntry bar3            {*this, 1, "bar3", MenuEntry::separator};
    MenuEntry configmn        {*this, 1, "configmn", "Configuración"};
    MenuEntry about           {*this, 1, "about", "Acerca de..."};
    MenuEntry bar4            {*this, 1, "bar4", MenuEntry::separator};
    MenuEntry loadrom         {*this, 1, "loadrom", "Cargar la ROM seleccionada"};
    MenuEntry editromid3      {*this, 1, "editromid3", "Editar el ID3 de la ROM seleccionada", MenuEntry::hidden};
    MenuEntry barra1          {*this, 1, "barra1", MenuEntry::hiddenSeparator};
    MenuEntry view_tv         {*this, 1, "view_tv", "Ver Torvane", MenuEntry::hidden};
    MenuEntry bar6            {*this, 1, "bar6", MenuEntry::separator};
    MenuEntry end             {*this, 1, "end", "Salir"};
    MenuEntry bar7            {*this, 1, "bar7", MenuEntry::separator};
    MenuEntry bar8            {*this, 1, "bar8", MenuEntry::separator};
};

} // namespace torvane

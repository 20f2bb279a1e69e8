// SPDX-License-Identifier: MIT
// clang-format off
// The design of the gallery: one line a control, in tab order.
#pragma once

#include "platform/forms/FileImage.h"
#include "platform/forms/FileList.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/ScrolledListView.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct CompartirDesign : Form {
    using Design = CompartirDesign;

    explicit CompartirDesign(Runtime& runtime)
        : Form(runtime, {.name="Compartir", .title="Torvane 1.1", .clientSize={494,386}, .picture="Compartir.jpg", .backColour=0x0000FF,
                         .inTaskBar=true}) {
        Label1.names(*this);
        Snap.isCalled(spoken("screenshots", "Lista de capturas"));
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        ChameleonButton5.isCalled(tip("minimise", "Minimizar"));
        ChameleonButton6.isCalled(spoken("previousshot", "Captura anterior"));
        ChameleonButton7.isCalled(spoken("nextshot", "Captura siguiente"));
        ChameleonButton8.isCalled(spoken("enlarge", "Ampliar la captura"));
        ChameleonButton9.isCalled(spoken("print", "Imprimir la captura"));
        ChameleonButton10.isCalled(spoken("deleteshot", "Eliminar la captura"));
        Capturas.conceal();
    }

    static constexpr const char* pictures = "*.jpg;*.gif;*.bmp;*.png";
    static constexpr const char* stockPicture = "Compartir-Image16.bmp";
    static constexpr std::initializer_list<const char*> kinds = {"image-jpg-32.png", "image-bmp-32.png", "image-gif-32.png",
                                                                 "image-png-32.png"};

    ScrolledListView Snap              {*this, "Snap", {4,26,253,356}, ImageList1};
    FileList         Capturas          {*this, "Capturas", {498,156,35,45}, {.pattern=pictures, .visible=false}};
    Label            Label5            {*this, "Label5", {268,214,61,13}, {"Formato", V8b, white}};
    Label            Label7            {*this, "Label7", {268,280,61,13}, {"Tamaño", V8b, white}};
    Label            Label8            {*this, "Label8", {268,247,88,13}, {"Dimensiones", V8b, white}};
    Label            Dimension         {*this, "Dimension", {274,262,214,13}, {"", V8, white}};
    Label            Tamany            {*this, "Tamany", {274,295,214,13}, {"", V8, white}};
    Label            Format            {*this, "Format", {274,229,214,13}, {"", V8, white}};
    chameleonButton  chameleonButton1  {*this, "chameleonButton1", {472,0,22,21}, onBand("close-16.png")};
    chameleonButton  ChameleonButton5  {*this, "ChameleonButton5", {451,0,21,21}, onBand("minimise-16.png")};
    chameleonButton  ChameleonButton6  {*this, "ChameleonButton6", {262,187,22,21}, small("previous-16.png")};
    chameleonButton  ChameleonButton7  {*this, "ChameleonButton7", {472,187,22,21}, small("next-16.png")};
    chameleonButton  ChameleonButton8  {*this, "ChameleonButton8", {346,187,22,21}, small("zoom-in-16.png")};
    chameleonButton  ChameleonButton9  {*this, "ChameleonButton9", {368,187,22,21}, small("print-16.png")};
    chameleonButton  ChameleonButton10 {*this, "ChameleonButton10", {390,187,22,21}, small("delete-16.png")};
    Label            Label1            {*this, "Label1", {4,2,421,17}, {"Torvane 1.1 » Galería de Capturas", V9b, white}};
    ImageList        ImageList1        {*this, "ImageList1", kinds};
    FileImage        Datos             {*this, "Datos", {496,4,34,106}, FileImage::natural};
    FileImage        Image1            {*this, "Image1", {268,27,220,154}, FileImage::stretched};
    Image            Image16           {*this, "Image16", {500,206,460,265}, stockPicture, false};
};

} // namespace torvane

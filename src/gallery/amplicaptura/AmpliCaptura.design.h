// SPDX-License-Identifier: MIT
// clang-format off
// The design of the enlarged view: one line a control, in tab order.
#pragma once

#include "platform/forms/FileImage.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct AmpliCapturaDesign : Form {
    using Design = AmpliCapturaDesign;

    explicit AmpliCapturaDesign(Runtime& runtime)
        : Form(runtime, {.name="AmpliCaptura", .title="Form1", .clientSize={500,400}, .picture="AmpliCaptura.jpg", .backColour=0x0000FF,
                         .unit=FormDesign::twips}) {
        Label1.names(*this);
        chameleonButton1.isCalled(spoken("close", "Cerrar la ventana"));
        ChameleonButton2.isCalled(spoken("print", "Imprimir la captura"));
        ChameleonButton3.isCalled(spoken("zoomin", "Aumentar"));
        ChameleonButton4.isCalled(spoken("zoomout", "Reducir"));
    }

    chameleonButton chameleonButton1 {*this, "chameleonButton1", {478,0,22,21}, onBand("close-16.png")};
    chameleonButton ChameleonButton2 {*this, "ChameleonButton2", {0,0,22,21}, onBand("print-band-16.png")};
    chameleonButton ChameleonButton3 {*this, "ChameleonButton3", {22,0,22,21}, onBand("zoom-in-band-16.png")};
    chameleonButton ChameleonButton4 {*this, "ChameleonButton4", {44,0,22,21}, onBand("zoom-out-band-16.png")};
    Label           Label1           {*this, "Label1", {70,2,405,17}, {"Torvane 1.1 » Captura Ampliada", V9b, white}};
    FileImage       IMG_BIG          {*this, "IMG_BIG", {4,26,23,31}, FileImage::natural};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// clang-format off
// The design of the dialog that adds a page to the user's own list: one line a control, in tab order.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"
#include "toolkit/ButtonFaces.h"
#include "toolkit/TVLabel.h"
#include "toolkit/chameleonButton.h"

namespace torvane {

struct AddPersonalWebDesign : Form {
    using Design = AddPersonalWebDesign;

    explicit AddPersonalWebDesign(Runtime& runtime)
        : Form(runtime, {.name="AddPersonalWeb", .title="Form1", .clientSize={436,170}, .picture="AddPersonalWeb.jpg",
                         .backColour=0x0000FF}) {
        Label1.names(*this);
        TVLabel1.names(Text2);
        TVLabel2.names(Text1);
    }

    TextBox         Text2             {*this, "Text2", {4,46,428,19}, {"", V8b, white, indigo}};
    TextBox         Text1             {*this, "Text1", {4,90,428,19}, {"http://", V8b, white, indigo}};
    chameleonButton ChameleonButton17 {*this, "ChameleonButton17", {326,140,106,26}, foot("Añadir")};
    Label           Label1            {*this, "Label1", {4,2,421,17}, {"Torvane 1.1 » Añadir Enlace Personal", V9b, white}};
    chameleonButton ChameleonButton1  {*this, "ChameleonButton1", {218,140,106,26}, foot("Cancelar")};
    TVLabel         TVLabel1          {*this, "TVLabel1", {6,28,427,17}, {"Nombre de la Web"}};
    TVLabel         TVLabel2          {*this, "TVLabel2", {6,72,427,17}, {"Dirección URL de la web"}};
};

} // namespace torvane

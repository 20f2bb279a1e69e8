// SPDX-License-Identifier: MIT
// The program's own question and its answers.
#include "TorvMsg.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/GameShelf.h"
#include "core/Texts.h"

namespace torvane {

TorvMsg::TorvMsg(const Services& services) : TorvMsgDesign(services.runtime), m(services) {
    wire(chameleonButton2, &chameleonButton::Click, &TorvMsg::chameleonButton2_Click, Failure::reported);
    wire(chameleonButton3, &chameleonButton::Click, &TorvMsg::chameleonButton3_Click);
}

void TorvMsg::Load() {
    const Texts text(m.language, "Config");
    chameleonButton2.setCaption(text("yes"));
    chameleonButton3.setCaption(text("no"));
}

void TorvMsg::MakeMSG(const QString& Message, const QString& Action, const QString& Data) {
    Label2.setCaption(Message);
    m_action = Action.toLower();
    m_data = Data;
    // Nothing but the question takes input then.
    if (m_action == QStringLiteral("exit")) m.shelf.setTakesInput(false);
}

void TorvMsg::chameleonButton2_Click() {
    if (m_action == QStringLiteral("exit")) {
        m.desk.endProgram();
        return;
    }
    if (m_action == QStringLiteral("delete")) {
        m.funciones.DeleteRom(m_data);
        m.shelf.refresh();
    }
    Unload();
}

void TorvMsg::chameleonButton3_Click() {
    Unload();
    m.shelf.setTakesInput(true);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The program's own question and its answers.
#include "TorvMsg.h"

namespace torvane {

TorvMsg::TorvMsg(Runtime& runtime, Desk& desk, const LanguageTables& language,
                 std::function<void(const QString&)> deleteRom)
    : TorvMsgDesign(runtime), m_desk(desk), m_language(language), m_deleteRom(std::move(deleteRom)) {
    wire(chameleonButton2, &chameleonButton::Click, this, &TorvMsg::chameleonButton2_Click);
    wire(chameleonButton3, &chameleonButton::Click, this, &TorvMsg::chameleonButton3_Click);
}

void TorvMsg::Load() {
    chameleonButton2.setCaption(m_language.LangText(QStringLiteral("Config"), QStringLiteral("yes")));
    chameleonButton3.setCaption(m_language.LangText(QStringLiteral("Config"), QStringLiteral("no")));
}

void TorvMsg::MakeMSG(const QString& Message, const QString& Action, const QString& Data) {
    Label2.setCaption(Message);
    // Above the main window, which takes no input while the question stands and must not hide it.
    Show(m_desk.visibleMainWindow());
    m_action = Action.toLower();
    m_data = Data;
    if (m_action == QStringLiteral("exit")) m_desk.disableMainWindow();
}

void TorvMsg::chameleonButton2_Click() {
    if (m_action == QStringLiteral("exit")) {
        m_desk.endProgram();
        return;
    }
    if (m_action == QStringLiteral("delete")) m_deleteRom(m_data);
    Unload();
}

void TorvMsg::chameleonButton3_Click() {
    Unload();
    m_desk.enableVisibleMainWindow();
}

} // namespace torvane

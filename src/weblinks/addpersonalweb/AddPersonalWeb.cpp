// SPDX-License-Identifier: MIT
// Captions, and the way of a page into the file.
#include "AddPersonalWeb.h"
#include "core/Desk.h"
#include "core/LineText.h"
#include "core/Texts.h"
#include "weblinks/WebFields.h"

namespace torvane {

AddPersonalWeb::AddPersonalWeb(const Services& services)
    : AddPersonalWebDesign(services.runtime), m(services) {
    Text2.setInputFilter([](const QString& entered) { return lineText(entered); });
    Text1.setInputFilter(WebFields::storableAddress);
    wire(Text2, &TextBox::entered, [this] { Text1.setFocus(); });
    wire(Text1, &TextBox::entered, &AddPersonalWeb::ChameleonButton17_Click, Failure::reported);
    wire(ChameleonButton17, &chameleonButton::Click, &AddPersonalWeb::ChameleonButton17_Click,
         Failure::reported);
    wire(ChameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
}

void AddPersonalWeb::Load() {
    const Texts text(m.language, "AddWeb");
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    TVLabel1.setCaption(text("webname"));
    TVLabel2.setCaption(text("weburl"));
    ChameleonButton17.setCaption(text("add"));
    ChameleonButton1.setCaption(text("cancel"));
}

void AddPersonalWeb::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (!event->spontaneous()) Text2.setFocus();
}

void AddPersonalWeb::EditWeb(const QString& name, const QString& address) {
    Text2.setText(name);
    Text1.setText(address);
}

// After a failure the dialog stays, with what was typed.
void AddPersonalWeb::ChameleonButton17_Click() {
    m_lists.add(Text2.Text(), Text1.Text());
    Unload();
    m.desk.go(id, Window::URL);
}

} // namespace torvane

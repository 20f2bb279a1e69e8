// SPDX-License-Identifier: MIT
// Captions, and the way to the browser.
#include "SearchROM.h"
#include "core/Funciones.h"
#include "core/Pages.h"
#include "core/Texts.h"

namespace torvane {

SearchROM::SearchROM(const Services& services) : SearchROMDesign(services.runtime), m(services) {
    wire(ChameleonButton17, &chameleonButton::Click, &SearchROM::ChameleonButton17_Click);
    wire(CRYTextBox1, &TextBox::entered, &SearchROM::ChameleonButton17_Click);
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
}

void SearchROM::Load() {
    const Texts text(m.language, "SearchROM");
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    Label2.setCaption(text("message1"));
    Label3.setCaption(text("message2"));
    ChameleonButton17.setCaption(text("search"));
}

void SearchROM::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (!event->spontaneous()) CRYTextBox1.setFocus();
}

// A blank is something to search for.
void SearchROM::ChameleonButton17_Click() {
    const QString& typed = CRYTextBox1.Text();
    if (!typed.isEmpty()) m.funciones.OpenURL(m.hosts.address(Pages::searchResults, typed));
    Unload();
}

} // namespace torvane

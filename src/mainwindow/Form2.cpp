// SPDX-License-Identifier: MIT
// Captions, and the way of a tag into a game.
#include "Form2.h"
#include "catalogue/ID3.h"
#include "core/GameShelf.h"
#include "core/Globals.h"
#include "core/Texts.h"

namespace torvane {

Form2::Form2(const Services& services) : Form2Design(services.runtime), m(services) {
    // After a game that can't be written, or without one, the user can choose another.
    wire(Command1, &chameleonButton::Click, &Form2::Command1_Click, Failure::reported);
    for (chameleonButton* button : {&chameleonButton1, &Command2}) {
        wire(*button, &chameleonButton::Click, [this] { Unload(); });
    }
}

void Form2::Load() {
    const Texts text(m.language, "OLDB");
    File1.setPath(m.globals.AppPath + QStringLiteral("\\ROMs\\"));
    Label1.setCaption(m.globals.TitlePrefix + text("useid3title"));
    Label2.setCaption(text("selectgame") + text("description") + text("warning"));
    Command1.setCaption(text("useid3ok"));
    Command2.setCaption(text("useid3cancel"));
}

void Form2::Command1_Click() {
    ID3& id3 = m.id3;
    const QString path = File1.filePath();
    if (id3.HasRomTag(path)) {
        id3.ReplaceRomTag(path, id3.NewTitle, id3.NewCompany, id3.NewDate, id3.NewInfo);
    } else {
        id3.AppendRomTag(path);
    }
    m.shelf.tagChanged(path);
    m.runtime.messages.MsgBox(QStringLiteral("TAG Completado"));
    Unload();
}

} // namespace torvane

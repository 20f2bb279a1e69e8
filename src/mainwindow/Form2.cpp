// SPDX-License-Identifier: MIT
// Captions, the hint, and the way of a tag into a game.
#include "Form2.h"
#include "catalogue/ID3.h"
#include "catalogue/TagInput.h"
#include "core/CompactWindow.h"
#include "core/GameShelf.h"
#include "core/Globals.h"
#include "platform/base/File.h"

namespace torvane {

Form2::Form2(const Services& services) : Form2Design(services.runtime), m(services) {
    wire(File1, &FileList::Click, &Form2::File1_Click, Failure::reported);
    // After a game that can't be written, or without one, the user can choose another.
    wire(Command1, &chameleonButton::Click, &Form2::Command1_Click, Failure::reported);
    for (chameleonButton* button : {&chameleonButton1, &Command2}) {
        wire(*button, &chameleonButton::Click, [this] { Unload(); });
    }
}

void Form2::Load() {
    File1.setPath(m.globals.AppPath + QStringLiteral("\\ROMs\\"));
    Label1.setCaption(m.globals.TitlePrefix + text("useid3title"));
    Label2.setCaption(text("selectgame") + text("description") + text("warning"));
    Command1.setCaption(text("useid3ok"));
    Command2.setCaption(text("useid3cancel"));
}

void Form2::take(const QStringList&) { File1_Click(); }

// The hint replaces the title: no other line of this design has room for it.
void Form2::File1_Click() {
    const QString tooLong = Texts(m.language, "MainMenu")("toolong", QStringLiteral("Too long to show"));
    Label1.setCaption(m.globals.TitlePrefix + (isTooLong() ? tooLong : text("useid3title")));
}

// Whether the chosen game would appear untagged with the New values. A game that can't be looked at fails
// later, when it is written.
bool Form2::isTooLong() const {
    if (File1.FileName().isEmpty()) return false;
    bool result = false;
    ignoring([&] {
        result = TagInput::isTooLongToRead(m.id3.NewTitle, m.id3.NewCompany, m.id3.NewInfo,
                                           File::lengthOf(File1.filePath()));
    });
    return result;
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
    m.compact.refresh();
    m.runtime.messages.MsgBox(QStringLiteral("TAG Completado"));
    Unload();
}

} // namespace torvane

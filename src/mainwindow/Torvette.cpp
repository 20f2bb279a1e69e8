// SPDX-License-Identifier: MIT
// What the compact window shows, and what its buttons do.
#include "Torvette.h"
#include "catalogue/ID3.h"
#include "core/CompactTexts.h"
#include "core/Desk.h"
#include "core/Pieces.h"
#include "platform/base/File.h"

namespace torvane {

namespace {
const QString designMissing = QStringLiteral("No disponible");

QString nameOf(const SelectedGame& game, const QString& missing) {
    return game.title == missing ? game.name : game.title;
}
} // namespace

Torvette::Torvette(const Services& services) : TorvetteDesign(services.runtime), m(services) {}

void Torvette::Load() {
    RefreshMyList();
    runtime().reporting([this] { ROMData(); });
}

void Torvette::RefreshMyList() {
    Text1.setText(CompactTexts::line(nameOf(m.shelf.selected(), designMissing)));
}

void Torvette::ROMData() {
    const SelectedGame game = m.shelf.selected();
    Label6.setCaption(m.id3.RomTag.Company);
    Label7.setCaption(m.id3.RomTag.Info);
    const QString console = CompactTexts::console(game.name);
    if (!console.isNull()) Label4.setCaption(console);
    if (secondPiece(game.name) == QStringLiteral("zip")) {
        Label6.setCaption(QString());
        Label7.setCaption(QString());
    }
    Label5.setCaption(QString::number(File::lengthOf(game.path) / 1024) + QStringLiteral(" KB"));
    Label3.setCaption(CompactTexts::number(game.index + 1));
}

void Torvette::queryUnload() { Unload(); }

} // namespace torvane

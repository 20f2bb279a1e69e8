// SPDX-License-Identifier: MIT
// What the compact window shows: the scrolling line and the data of the selected game.
#include "Torvette.h"
#include "catalogue/ID3.h"
#include "core/CompactTexts.h"
#include "core/Texts.h"
#include "platform/base/File.h"

#include <QFontMetrics>

namespace torvane {

namespace {
// The title that load and refresh take for "none", whatever the language. Steps and the timer ask the
// language file.
const QString designMissing = QStringLiteral("No disponible");

QString nameOf(const SelectedGame& game, const QString& missing) {
    return game.title == missing ? game.name : game.title;
}

QString missingIn(const LanguageTables& language) { return Texts(language, "Globals")("nodisp"); }
} // namespace

Torvette::Torvette(const Services& services) : TorvetteDesign(services.runtime), m(services) {
    Text1.setVisible(false);
    Timer1.setEnabled(false);
    wire(Timer1, &Timer::Tick, &Torvette::Timer1_Tick);
    wire(*this, &Form::resized, &Torvette::runWhileSeen);
    nameButtons();
    liftStrip();
    wireButtons();
    wireKeys();
    setFolded(true);
}

void Torvette::Load() {
    RefreshMyList();
    takeCorner();
    takePin();
    // A game that has disappeared meanwhile must not keep the window from appearing.
    runtime().reporting([this] { ROMData(); });
}

void Torvette::RefreshMyList() { setLine(designMissing); }

void Torvette::showStep() {
    setLine(missingIn(m.language));
    ROMData();
}

void Torvette::follow() {
    const SelectedGame game = m.shelf.selected();
    if (m_lineOf != QStringList{game.name, game.title}) setLine(missingIn(m.language));
    ignoring([this] { ROMData(); });
}

void Torvette::setLine(const QString& missing) {
    const SelectedGame game = m.shelf.selected();
    const QString name = nameOf(game, missing);
    m_lineOf = {game.name, game.title};
    Text1.setText(CompactTexts::line(name));
    // Assistive tools read the whole name once, not every step of the line.
    setSpokenName(Label1, name);
}

// A scrolling line has its own copy of the name; a short one follows the main window.
void Torvette::Timer1_Tick() {
    if (CompactTexts::scrolls(Text1.Text())) {
        Text1.setText(CompactTexts::advanced(Text1.Text()));
        Label1.setCaption(CompactTexts::seen(Text1.Text()));
    } else {
        ignoring([this] {
            Label1.setCaption(CompactTexts::shown(nameOf(m.shelf.selected(), missingIn(m.language))));
        });
    }
}

void Torvette::ROMData() {
    const SelectedGame game = m.shelf.selected();
    showTag(game);
    // Without a game there is no file to measure.
    if (!game.name.isEmpty()) {
        Label5.setCaption(QString::number(File::lengthOf(game.path) / 1024) + QStringLiteral(" KB"));
    }
    showNumber(CompactTexts::number(game.index + 1));
}

void Torvette::showTag(const SelectedGame& game) {
    Label6.setCaption(m.id3.RomTag.Company);
    Label7.setCaption(m.id3.RomTag.Info);
    const QString console = CompactTexts::console(game.name, m.globals.names);
    if (!console.isNull()) Label4.setCaption(console);
    if (m.globals.names.secondPiece(game.name) == QStringLiteral("zip")) {
        for (Label* label : {&Label6, &Label7}) label->setCaption(QString());
    }
    if (!game.name.isEmpty()) return;
    for (Label* label : {&Label4, &Label5, &Label6, &Label7}) label->setCaption(QString());
}

// Some numbers are too wide for the label at the font size of the design.
void Torvette::showNumber(const QString& number) {
    FontSpec font = Label3.fontSpec();
    font.points = 24;
    while (QFontMetrics(Fonts::of(font)).horizontalAdvance(number) > Label3.width()) font.points -= 1;
    Label3.setFontSpec(font);
    Label3.setCaption(number);
}

// The timer rests while nobody can see the line.
void Torvette::runWhileSeen() { Timer1.setEnabled(isVisible() && windowStateWord() != minimised); }

void Torvette::showEvent(QShowEvent* event) {
    TorvetteDesign::showEvent(event);
    runWhileSeen();
}

void Torvette::hideEvent(QHideEvent* event) {
    TorvetteDesign::hideEvent(event);
    runWhileSeen();
}

} // namespace torvane

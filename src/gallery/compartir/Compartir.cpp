// SPDX-License-Identifier: MIT
// Load, selection and buttons of the gallery.
#include "Compartir.h"
#include "catalogue/TagInput.h"
#include "core/Desk.h"
#include "core/Globals.h"
#include "core/ScreenshotFolder.h"
#include "gallery/PictureTexts.h"
#include "gallery/ScreenshotRows.h"
#include "gallery/ShownPicture.h"
#include "platform/base/File.h"
#include "platform/base/NativeText.h"

namespace torvane {

namespace {
// The name of a file as boxes and paper can show it, whatever bytes it has.
QString shownName(const QString& fileName) { return QString::fromUtf8(NativeText::toNative(fileName)); }
} // namespace

Compartir::Compartir(const Services& services) : CompartirDesign(services.runtime), m(services) {
    wireControls();
}

void Compartir::wireControls() {
    wire(Snap, &RowList::rowClicked, &Compartir::Snap_Click);
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(ChameleonButton5, &chameleonButton::Click, [this] { setWindowStateWord(minimised); });
    wire(ChameleonButton6, &chameleonButton::Click, [this] { step(-1); });
    wire(ChameleonButton7, &chameleonButton::Click, [this] { step(1); });
    wire(m_left, &QShortcut::activated, [this] { step(-1); });
    wire(m_right, &QShortcut::activated, [this] { step(1); });
    wire(ChameleonButton8, &chameleonButton::Click, &Compartir::ChameleonButton8_Click, Failure::reported);
    wire(ChameleonButton9, &chameleonButton::Click, &Compartir::ChameleonButton9_Click, Failure::reported);
    wire(ChameleonButton10, &chameleonButton::Click, &Compartir::ChameleonButton10_Click, Failure::reported);
}

void Compartir::Load() {
    setCaptions();
    Snap.setFocus();
    try {
        listPictures();
    } catch (const RuntimeFailure&) {
        m.runtime.messages.MsgBox(text("invaliddir"), MsgBoxFlags::exclamation,
                                  QStringLiteral("Torvane ··· Error!"));
    }
}

void Compartir::setCaptions() {
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    Label5.setCaption(text("imgformat"));
    Label8.setCaption(text("imgsize"));
    Label7.setCaption(text("imgweight"));
}

void Compartir::listPictures() {
    Capturas.openPath(screenshotFolder(m.runtime.settings, m.globals).value());
    Snap.setItems(std::make_shared<ScreenshotRows>(Capturas.names(), m.globals.names));
    Snap.setCurrentRow(0);
    Snap_Click();
}

void Compartir::loadStockPicture() {
    Image1.setSource(PictureFile(Pictures::bytesOf(QString::fromLatin1(stockPicture))));
}

PictureKind Compartir::currentKind() const { return pictureKindOf(Capturas.FileName(), m.globals.names); }

// After a failure the picture and the labels stay as they were: the notice says that they are of another
// file.
void Compartir::Snap_Click() {
    if (Snap.currentRow() < 0) return;
    setNotice(!ignoring([this] { showCurrent(); }));
}

void Compartir::showCurrent() {
    Capturas.setListIndex(Snap.currentRow());
    if (currentKind() == PictureKind::png) return showStockPicture();
    loadCurrent();
    GetIMGData();
}

void Compartir::loadCurrent() { Image1.setSource(PictureFile::load(Capturas.filePath())); }

// A PNG that was clicked is not measured; one that is reached by a step has the measure of the stock picture.
void Compartir::showStockPicture() {
    loadStockPicture();
    Format.setCaption(formatName(PictureKind::png));
    Tamany.setCaption(PictureTexts::weight(File::lengthOf(Capturas.filePath())));
    Dimension.setCaption(QStringLiteral("¿Uh?"));
}

void Compartir::GetIMGData() {
    const PictureKind kind = currentKind();
    if (kind == PictureKind::png) loadStockPicture();
    Datos.setSource(Image1.source());
    Dimension.setCaption(PictureTexts::dimensions(Datos.source().size()));
    if (kind != PictureKind::other) Format.setCaption(formatName(kind));
    Tamany.setCaption(PictureTexts::weight(File::lengthOf(Capturas.filePath())));
}

// Beyond the ends the selection stays, and the labels are made anew. A picture that can't be loaded leaves
// the one before it, which is measured.
void Compartir::step(int by) {
    if (Snap.rowCount() == 0) return;
    const int next = Capturas.ListIndex() + by;
    if (next >= 0 && next < Capturas.ListCount()) Capturas.setListIndex(next);
    const bool isLoaded = currentKind() == PictureKind::png || ignoring([this] { loadCurrent(); });
    const bool isDescribed = ignoring([this] { GetIMGData(); });
    Snap.setCurrentRow(Capturas.ListIndex());
    setNotice(!isLoaded || !isDescribed);
}

void Compartir::setNotice(bool isUnreadable) {
    Image1.setNotice(isUnreadable ? text("unreadable", QStringLiteral("Esta captura no se puede mostrar"))
                                  : QString());
}

void Compartir::ChameleonButton8_Click() {
    if (Snap.rowCount() == 0 || Image1.source().isNull()) return;
    Capturas.setListIndex(Snap.currentRow());
    m.shown.picture = Image1.source();
    m.desk.go(id, Window::AmpliCaptura, {Capturas.FileName()});
}

void Compartir::ChameleonButton9_Click() {
    if (Snap.rowCount() == 0 || Image1.source().isNull()) return;
    const QString name = shownName(Capturas.FileName());
    const int answer = m.runtime.messages.MsgBox(text("printing") + name + QStringLiteral(". ¿OK?"),
                                                 MsgBoxFlags::question | MsgBoxFlags::yesNo,
                                                 QStringLiteral("Impresión de Captura"));
    if (answer != MsgBoxFlags::answerYes) return;
    m.runtime.print({headingOf(name), Image1.source(), {300, 300}},
                    {.title = text("gallerytitle"),
                     .filter = QStringLiteral("PDF|*.pdf"),
                     .fileName = m.globals.names.firstPiece(Capturas.FileName()) + QStringLiteral(".pdf")});
}

QString Compartir::headingOf(const QString& fileName) const {
    return text("gallerytitle") + QLatin1Char('[') + text("printed1") + fileName + QLatin1Char(' ') +
           text("printed2") + QLatin1Char(' ') + TagInput::todayAsText() + QLatin1Char(']');
}

void Compartir::ChameleonButton10_Click() {
    if (Snap.rowCount() == 0) return;
    const int answer = m.runtime.messages.MsgBox(
        text("warning"), MsgBoxFlags::exclamation | MsgBoxFlags::yesNo, text("gallerytitle"));
    if (answer == MsgBoxFlags::answerYes && !isUnloaded()) deleteCurrent();
}

// The window is rebuilt before it is loaded anew, so that the user sees one without the picture meanwhile.
void Compartir::deleteCurrent() {
    Capturas.setListIndex(Snap.currentRow());
    File::removeExactly(Capturas.filePath());
    Snap.Clear();
    pumpEvents();
    if (isUnloaded()) return;
    Load();
    pumpEvents();
    if (!isUnloaded()) m.desk.go(id, id);
}

} // namespace torvane

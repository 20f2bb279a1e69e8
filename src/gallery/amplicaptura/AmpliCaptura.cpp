// SPDX-License-Identifier: MIT
// Opening, zoom and printing of the enlarged view.
#include "AmpliCaptura.h"
#include "core/Globals.h"
#include "gallery/ShownPicture.h"

#include <QWheelEvent>
#include <utility>

namespace torvane {

namespace {
constexpr int wheelStep = 120; // eighths of a degree, see QWheelEvent

float twips(int pixels) { return static_cast<float>(pixels) * twipsPerPixel; }
int pixels(float twips) { return qRound(twips / twipsPerPixel); }

Enlargement::Room roomOf(const AmpliCapturaDesign& window) {
    const QSize size = window.design().clientSize;
    return {twips(size.width()), twips(size.height()), twips(window.chameleonButton1.height())};
}
} // namespace

AmpliCaptura::AmpliCaptura(const Services& services)
    : AmpliCapturaDesign(services.runtime), m(services), m_enlargement(roomOf(*this)) {
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(ChameleonButton2, &chameleonButton::Click, &AmpliCaptura::ChameleonButton2_Click, Failure::reported);
    wire(ChameleonButton3, &chameleonButton::Click, &AmpliCaptura::ChameleonButton3_Click);
    wire(ChameleonButton4, &chameleonButton::Click, &AmpliCaptura::ChameleonButton4_Click);
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
    wire(m_plus, &QShortcut::activated, &AmpliCaptura::ChameleonButton3_Click);
    wire(m_minus, &QShortcut::activated, &AmpliCaptura::ChameleonButton4_Click);
}

void AmpliCaptura::Load() { Label1.setCaption(m.globals.TitlePrefix + text("amplititle")); }

void AmpliCaptura::take(const QStringList& fileName) {
    m_fileName = fileName.value(0);
    ShowImage(std::exchange(m.shown.picture, {}));
}

void AmpliCaptura::ShowImage(const PictureFile& picture) {
    IMG_BIG.setSizing(FileImage::natural);
    IMG_BIG.setSource(picture);
    m_enlargement.show(twips(picture.size().width()), twips(picture.size().height()));
    place();
}

void AmpliCaptura::ChameleonButton3_Click() {
    IMG_BIG.setSizing(FileImage::stretched);
    m_enlargement.zoomIn();
    place();
}

void AmpliCaptura::ChameleonButton4_Click() {
    IMG_BIG.setSizing(FileImage::stretched);
    m_enlargement.zoomOut();
    place();
}

void AmpliCaptura::place() {
    const Enlargement::Bounds& twips = m_enlargement.place();
    IMG_BIG.setGeometry(pixels(twips.left), pixels(twips.top), pixels(twips.width), pixels(twips.height));
}

void AmpliCaptura::wheelEvent(QWheelEvent* event) {
    m_wheelRest += event->angleDelta().y();
    for (; m_wheelRest >= wheelStep; m_wheelRest -= wheelStep) ChameleonButton3_Click();
    for (; m_wheelRest <= -wheelStep; m_wheelRest += wheelStep) ChameleonButton4_Click();
    event->accept();
}

void AmpliCaptura::ChameleonButton2_Click() {
    const int answer =
        m.runtime.messages.MsgBox(text("advice"), MsgBoxFlags::question | MsgBoxFlags::yesNo, text("title"));
    if (answer != MsgBoxFlags::answerYes) return;
    m.runtime.print({{}, IMG_BIG.source(), {100, 100}},
                    {.title = text("title"),
                     .filter = QStringLiteral("PDF|*.pdf"),
                     .fileName = m.globals.names.firstPiece(m_fileName) + QStringLiteral(".pdf")});
    // After two dialogs some window managers would leave the keys to the gallery.
    activateWindow();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Captions, the credits, and the way to the browser. What comes back afterwards is the desk's matter.
#include "Aboutfrm.h"
#include "core/Funciones.h"
#include "core/Pages.h"
#include "core/Texts.h"

namespace torvane {

Aboutfrm::Aboutfrm(const Services& services) : AboutfrmDesign(services.runtime), m(services) {
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
    wire(ChameleonButton17, &chameleonButton::Click, &Aboutfrm::ChameleonButton17_Click);
}

void Aboutfrm::Load() {
    const Texts text(m.language, "About");
    ChameleonButton17.setCaption(text("report2"));
    TVLabel1.setCaption(text("report") + QStringLiteral(" »"));
    Label5.setCaption(text("title") + m.globals.VersionText);
    ShockwaveFlash1.setMovie(m.globals.AppPath + QStringLiteral("\\data\\credits.dat"));
    ShockwaveFlash1.Play();
}

void Aboutfrm::ChameleonButton17_Click() { m.funciones.OpenURL(m.hosts.address(Pages::bugReport)); }

} // namespace torvane

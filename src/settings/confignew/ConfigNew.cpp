// SPDX-License-Identifier: MIT
// The buttons of the control panel, and the check for a newer version.
#include "ConfigNew.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/Pages.h"
#include "platform/forms/HeldInput.h"

#include <QFontMetrics>
#include <QScopedValueRollback>
#include <algorithm>

namespace torvane {

namespace {
// The title of the program's boxes about versions, in every language.
const QString updater = QStringLiteral("Torvane » Updater");
} // namespace

ConfigNew::ConfigNew(const Services& services) : ConfigNewDesign(services.runtime), m(services) {
    TransferLimits limits = Inet1.limits();
    limits.bytes = VersionFile::longestBody;
    Inet1.setLimits(limits);
    load.setVisible(false);
    raiseTitle();
    wireControls();
}

// A line of the substitute font is taller than its label: it takes the room above, since the rule is right
// below.
void ConfigNew::raiseTitle() {
    QRect place = Label6.geometry();
    place.setTop(std::min(place.top(), place.bottom() + 1 - QFontMetrics(Label6.font()).height()));
    Label6.setGeometry(place);
}

// The fifth button has no handler: its services are yet to come.
void ConfigNew::wireControls() {
    Inet1.isClosedBy(chameleonButton1);
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
    opens(chameleonButton2, Window::NewAssistant);
    opens(chameleonButton3, Window::ConfGen);
    opens(chameleonButton4, Window::SelLang);
    wire(chameleonButton6, &chameleonButton::Click, &ConfigNew::chameleonButton6_Click, Failure::reported);
}

void ConfigNew::opens(chameleonButton& button, Window window) {
    wire(button, &chameleonButton::Click, [this, window] { m.desk.go(id, window); });
}

void ConfigNew::Load() {
    Label6.setCaption(text("title"));
    load.setCaption(text("checking"));
    chameleonButton2.setCaption(text("1"));
    Label1.setCaption(text("1b"));
    chameleonButton3.setCaption(text("2"));
    Label2.setCaption(text("2b"));
    chameleonButton4.setCaption(text("3"));
    Label3.setCaption(text("3b"));
    chameleonButton5.setCaption(text("4"));
    Label4.setCaption(text("4b"));
    chameleonButton6.setCaption(text("5"));
    Label5.setCaption(text("5b"));
    chameleonButton1.setCaption(text("return"));
}

// A second press during a check does nothing: not now, and not after it.
void ConfigNew::chameleonButton6_Click() {
    if (m_isChecking || Inet1.StillExecuting()) return;
    const QScopedValueRollback checking(m_isChecking, true);
    load.setVisible(true);
    pumpEvents();
    if (isUnloaded()) return;
    // The key has to reach the download as a key.
    m_escape.setEnabled(false);
    const Answer answer = fetch();
    m_escape.setEnabled(true);
    load.setVisible(false);
    // What has ended the download is still to come and must not be dropped. It comes now, while another press
    // of this button does nothing.
    if (answer.isCancelled) return pumpEvents();
    HeldInput::dropWaiting();
    if (isUnloaded()) return;
    answer.body ? check(*answer.body) : reportFetchFailure();
}

ConfigNew::Answer ConfigNew::fetch() {
    try {
        return {Inet1.OpenURL(m.hosts.address(Hosts::Host::update, QStringLiteral("/tv_version.txt")))};
    } catch (const RuntimeFailure& failure) {
        return {.isCancelled = failure.reason() == RuntimeFailure::Reason::cancelled};
    }
}

void ConfigNew::reportFetchFailure() {
    m.runtime.messages.MsgBox(
        text("unreachable", QStringLiteral("No se ha podido conectar con el servidor.")),
        MsgBoxFlags::exclamation, updater);
}

// A file that can't be written is read as it is.
void ConfigNew::check(const QByteArray& body) {
    m.runtime.reporting([&] { keep(body); });
    const QString version = m_file.lastVersion();
    if (m_file.isNews(version)) return offer(version);
    m.runtime.messages.MsgBox(text("notnew"), MsgBoxFlags::information, updater);
}

// Without its folder the file is of no use to anybody: that is no failure to report.
void ConfigNew::keep(const QByteArray& body) {
    try {
        m_file.write(body);
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != RuntimeFailure::pathNotFound &&
            failure.number() != RuntimeFailure::fileNotFound) {
            throw;
        }
    }
}

void ConfigNew::offer(const QString& version) {
    const QString paragraph = QStringLiteral("\r\n\r\n");
    const int answer = m.runtime.messages.MsgBox(text("newa") + paragraph + QStringLiteral("Torvane ") +
                                                     VersionFile::shown(version) + paragraph + text("newb"),
                                                 MsgBoxFlags::question | MsgBoxFlags::yesNo,
                                                 m.globals.TitlePrefix + text("newc"));
    if (answer == MsgBoxFlags::answerYes) m.funciones.OpenURL(m.hosts.address(Pages::newVersion));
}

} // namespace torvane

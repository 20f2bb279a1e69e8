// SPDX-License-Identifier: MIT
// Load, selection and buttons of the web list.
#include "URL.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/GameShelf.h"
#include "platform/base/CodePage1252.h"
#include "weblinks/WebEntry.h"
#include "weblinks/WebRows.h"
#include "weblinks/WebTexts.h"

#include <QScopeGuard>

namespace torvane {

namespace {
// More of a line than that would make a box that no screen has room for.
constexpr qsizetype longestInBox = 1000;

QString fourDigits(int number) { return QString::number(number).rightJustified(4, QLatin1Char('0')); }
} // namespace

URL::URL(const Services& services) : URLDesign(services.runtime), m(services) { wireControls(); }

void URL::wireControls() {
    wire(List1, &ListBox::Click, &URL::List1_Click, Failure::reported);
    wire(List1, &ListBox::DblClick, &URL::openPage, Failure::reported);
    wire(ListView1, &RowList::rowClicked, &URL::ListView1_Click, Failure::reported);
    wire(ListView1, &RowList::rowDoubleClicked, &URL::openPage, Failure::reported);
    wire(Label15, &Label::Click, &URL::openPage, Failure::reported);
    Inet1.isClosedBy(chameleonButton1);
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(ChameleonButton2, &chameleonButton::Click, &URL::ChameleonButton2_Click, Failure::reported);
    wire(chameleonButton4, &chameleonButton::Click, [this] { m.desk.go(id, Window::AddPersonalWeb); });
    wire(chameleonButton5, &chameleonButton::Click, &URL::chameleonButton5_Click, Failure::reported);
}

void URL::Load() {
    Inet::Limits limits = Inet1.limits();
    limits.bytes = WebLists::mostDownloaded;
    Inet1.setLimits(limits);
    setCaptions();
    ListView1.setFocus();
    const WebLists::Reading reading = m_lists.read();
    List1.setItems(std::make_shared<WebTexts>(reading.entries));
    ListView1.setItems(std::make_shared<WebRows>(reading.entries));
    if (!reading.isWhole || !ignoring([this] { selectFirst(); })) m.funciones.ShowFatalError();
}

void URL::setCaptions() {
    Label2.setCaption(m.globals.TitlePrefix + capital("weblisttitle"));
    Lbl_ID3Title.setCaption(text("webpage"));
    Lbl_ID3Author.setCaption(text("webkind"));
    Lbl_ID3Date.setCaption(text("weburl"));
    GameTitle.setCaption(text("nodisp"));
    GameAutor.setCaption(text("downloading"));
    GameDate.setCaption(text("ordernum"));
    Loading.setCaption(text("downloading"));
    Loading.hide();
    Label12.setCaption(text("ordernum"));
    Label16.setCaption(text("totalweb"));
    ChameleonButton2.setCaption(text("delete"));
    ChameleonButton2.setEnabled(false);
    chameleonButton4.setCaption(text("addnew"));
    chameleonButton5.setCaption(text("update"));
}

void URL::selectFirst() {
    TotalRom.setCaption(fourDigits(List1.ListCount()));
    if (ListView1.rowCount() == 0) return;
    ListView1.setCurrentRow(0);
    List1.setListIndex(0);
}

void URL::SetNewName(const QString& name) { m.desk.go(id, id, {name}); }

// The same place in both lists: after a line that gave a row alone they are not of one page any more.
void URL::ListView1_Click() { List1.setListIndex(ListView1.currentRow()); }

void URL::List1_Click() {
    const WebEntry entry(List1.Text());
    ChameleonButton2.setEnabled(!entry.isInert() && !entry.isShared());
    if (entry.isInert()) return;
    OrderNumber.setCaption(fourDigits(ListView1.currentRow() + 1));
    GameTitle.setCaption(entry.name());
    GameAutor.setCaption(entry.isShared() ? capital("system") : text("user"));
    GameDate.setCaption(entry.address());
}

// The main window, which comes back, makes room for the browser.
void URL::openPage() {
    const WebEntry entry(List1.Text());
    if (entry.isInert()) return;
    const bool isOpened = ignoring([&] {
        if (!entry.isPage()) throw RuntimeFailure(RuntimeFailure::invalidCall);
        m.funciones.OpenURL(entry.address());
    });
    if (!isOpened) {
        m.runtime.messages.MsgBox(text("error"));
        return;
    }
    Unload();
    m.shelf.minimiseWindow();
}

// The box is no question, and shows the line as it is in the file.
void URL::ChameleonButton2_Click() {
    const QByteArray line = WebEntry(List1.Text()).line();
    m.runtime.messages.MsgBox(CodePage1252::fromBytes(line.left(longestInBox)));
    if (isUnloaded()) return;
    m_lists.remove(line);
    m.desk.go(id, id);
}

void URL::chameleonButton5_Click() {
    Loading.show();
    const auto hiding = qScopeGuard([this] { Loading.hide(); });
    pumpEvents();
    if (!isUnloaded()) fetchNewer(m_lists.shared());
}

void URL::fetchNewer(const std::optional<QByteArray>& old) {
    try {
        const QByteArray body =
            Inet1.OpenURL(m.hosts.address(Hosts::Host::update, QStringLiteral("/url.dat")));
        // The same words in every language.
        if (body == old) {
            m.runtime.messages.MsgBox(QStringLiteral(
                "La lista de URLs no se puede actualizar, ya es la última versión que existe."));
        } else if (body.isEmpty()) {
            reportFailedUpdate();
        } else {
            replaceShared(body);
        }
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() != RuntimeFailure::Reason::cancelled) reportFailedUpdate();
    }
}

void URL::replaceShared(const QByteArray& body) {
    m_lists.replaceShared(body);
    m.runtime.messages.MsgBox(text("updatefinished"));
    if (!isUnloaded()) m.desk.go(id, id);
}

void URL::reportFailedUpdate() {
    m.runtime.messages.MsgBox(QStringLiteral("Error mientras se descargaba. No se puede actualizar."));
}

} // namespace torvane

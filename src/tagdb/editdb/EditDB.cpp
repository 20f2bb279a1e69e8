// SPDX-License-Identifier: MIT
// Load, filter and buttons of the database window.
#include "EditDB.h"
#include "catalogue/ID3.h"
#include "catalogue/TagInput.h"
#include "core/Desk.h"
#include "core/Funciones.h"
#include "core/Pages.h"
#include "platform/base/CodePage1252.h"

#include <QLocale>

namespace torvane {

EditDB::EditDB(const Services& services) : EditDBDesign(services.runtime), m(services) { wireControls(); }

void EditDB::wireControls() {
    wire(ListView1, &RowList::rowDoubleClicked, &EditDB::ListView1_DblClick);
    down.isClosedBy(chameleonButton1);
    wire(chameleonButton1, &chameleonButton::Click, &EditDB::chameleonButton1_Click);
    wire(ChameleonButton17, &chameleonButton::Click, &EditDB::ChameleonButton17_Click, Failure::reported);
    wire(ChameleonButton3, &chameleonButton::Click, &EditDB::ChameleonButton3_Click, Failure::reported);
    wire(ChameleonButton2, &chameleonButton::Click, &EditDB::ApplyOnlineFilter, Failure::reported);
    for (TextBox* box : {&File_Author, &File_Game, &File_Date, &File_Company}) {
        wire(*box, &TextBox::entered, &EditDB::ApplyOnlineFilter, Failure::reported);
    }
    wire(Timer1, &Timer::Tick, &EditDB::Timer1_Tick);
}

// Shows itself before the download, which blocks: the desk shows windows only after their load.
void EditDB::Load() {
    const Hold hold(*this);
    setCaptions();
    Show();
    ListView1.setFocus();
    pumpEvents();
    if (isUnloaded()) return;
    try {
        fetch();
    } catch (const RuntimeFailure& failure) {
        if (failure.reason() != RuntimeFailure::Reason::cancelled) reportFetchFailure();
    }
}

void EditDB::setCaptions() {
    Label14.setCaption(text("filters"));
    Label15.setCaption(text("filterterms"));
    Entradas_0.setCaption(text("onlysystem"));
    Entradas_1.setCaption(text("onlyuser"));
    Entradas_2.setCaption(text("allterms"));
    Label27.setCaption(text("filterauthor"));
    Label5.setCaption(text("filtergame"));
    Label10.setCaption(text("filterold"));
    Label29.setCaption(text("filtercompany"));
    int column = 0;
    for (const char* key : {"Col1", "Col2", "Col3", "Col4", "Col5", "Col6"}) {
        ListView1.setHeader(column++, text(key));
    }
    ChameleonButton2.setCaption(text("applyfilter"));
    ChameleonButton17.setCaption(text("useid3"));
    ChameleonButton3.setCaption(text("publish"));
}

// A body that has arrived becomes the file even if the window has been closed since.
void EditDB::fetch() {
    const QByteArray body =
        down.OpenURL(m.hosts.address(Hosts::Host::update, QStringLiteral("/online_db.txt")));
    pumpEvents();
    m_db.write(body);
    if (!isUnloaded()) ApplyOnlineFilter();
}

// These words are the same in every language.
void EditDB::reportFetchFailure() {
    m.runtime.messages.MsgBox(
        QStringLiteral("Se ha producido un error mientras se conectaba a la Base de Datos.\r\n\r\n"
                       "Intentalo de nuevo o más tarde, o cambia de servidor."),
        MsgBoxFlags::information, QStringLiteral("Torvane 1.0 OnLine DataBase"));
}

OnlineDbFilter::Kind EditDB::wantedKind() const {
    if (Entradas_0.Value()) return OnlineDbFilter::Kind::system;
    return Entradas_1.Value() ? OnlineDbFilter::Kind::user : OnlineDbFilter::Kind::all;
}

OnlineDbFilter EditDB::filter() const {
    return {.GB_CL = GB_CL.Value() == 1,
            .GB_CO = GB_CO.Value() == 1,
            .GB_AD = GB_AD.Value() == 1,
            .kind = wantedKind(),
            .author = File_Author.Text(),
            .game = File_Game.Text(),
            .date = File_Date.Text(),
            .company = File_Company.Text()};
}

// Without a file that can be read no row stays.
void EditDB::ApplyOnlineFilter() {
    m_rows = std::make_shared<OnlineDbRows>();
    ListView1.Clear();
    m_rows =
        m_db.filtered(filter(), QDate::currentDate(), QLocale::system().dateFormat(QLocale::ShortFormat));
    ListView1.setItems(m_rows);
}

void EditDB::LoadGameInDB(const QString& System, const QString& Title, const QString& Company,
                          const QString& Date, const QString& Info, const QString& Author,
                          const QString& Kind) {
    using CodePage1252::toBytes;
    m_rows->append({toBytes(System), toBytes(Title), toBytes(Company), toBytes(Date), toBytes(Info),
                    toBytes(Kind), toBytes(Author)});
    const int current = ListView1.currentRow();
    ListView1.setItems(m_rows);
    ListView1.setCurrentRow(current);
}

void EditDB::Timer1_Tick() {
    const bool isBusy = down.StillExecuting();
    load.setVisible(isBusy);
    ChameleonButton17.setEnabled(!isBusy);
    if (!isBusy) Timer1.setEnabled(false);
}

void EditDB::ListView1_DblClick(int row) {
    const OnlineDbEntry entry = m_rows->entry(row);
    QStringList values;
    for (const QByteArray& value :
         {entry.Kind, entry.Title, entry.Company, entry.Date, entry.Author, entry.System, entry.Info}) {
        values += CodePage1252::fromBytes(value);
    }
    m.desk.go(id, Window::DB_Info, values);
}

void EditDB::ChameleonButton3_Click() { m.funciones.OpenURL(m.hosts.address(Pages::publish)); }

// Neither the entry's own date nor its author and kind are for the tag.
void EditDB::ChameleonButton17_Click() {
    const int row = ListView1.currentRow();
    if (row < 0) throw RuntimeFailure(RuntimeFailure::noObject);
    const OnlineDbEntry entry = m_rows->entry(row);
    if (entry.Title.isEmpty()) return;
    m.id3.NewTitle = CodePage1252::fromBytes(entry.Title);
    m.id3.NewCompany = CodePage1252::fromBytes(entry.Company);
    m.id3.NewDate = TagInput::todayAsText();
    m.id3.NewInfo = CodePage1252::fromBytes(entry.Info);
    m.desk.go(id, Window::Form2, {m.id3.NewTitle});
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The four ways to a game.
#include "AdvSearch.h"
#include "core/CompactWindow.h"
#include "core/GameShelf.h"
#include "core/Globals.h"
#include "core/Texts.h"

namespace torvane {

namespace {
enum Mode : quint8 { byTitle = 0, byNumber = 1, toLast = 2, toFirst = 3 };
} // namespace

AdvSearch::AdvSearch(const Services& services) : AdvSearchDesign(services.runtime), m(services) {
    wireOption(Search_0, TVLabel1, byTitle);
    wireOption(Search_1, TVLabel2, byNumber);
    wireOption(Search_2, TVLabel3, toLast);
    wireOption(Search_3, TVLabel4, toFirst);
    wire(CRYTextBox1, &TextBox::entered, &AdvSearch::ChameleonButton17_Click);
    wire(Text1, &TextBox::entered, &AdvSearch::ChameleonButton17_Click);
    wire(ChameleonButton17, &chameleonButton::Click, &AdvSearch::ChameleonButton17_Click);
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
}

// The options have no words of their own: a click on those beside one is a click on the option.
void AdvSearch::wireOption(OptionButton& option, TVLabel& caption, quint8 mode) {
    wire(option, &OptionButton::Click, [this, mode] { m_searchMode = mode; });
    wire(option, &OptionButton::entered, &AdvSearch::ChameleonButton17_Click);
    wire(caption, &TVLabel::Click, [&option] {
        option.setFocus();
        option.setValue(true);
    });
}

void AdvSearch::Load() {
    const Texts text(m.language, "AdvSearch");
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    TVLabel1.setCaption(text("byname"));
    TVLabel2.setCaption(text("bynum"));
    TVLabel3.setCaption(text("tolast"));
    TVLabel4.setCaption(text("totop"));
    Label3.setCaption(text("type1"));
    Label4.setCaption(text("type2"));
    ChameleonButton17.setCaption(text("dosearch"));
}

// What the box holds from the last time is likely to be replaced.
void AdvSearch::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    if (event->spontaneous()) return;
    CRYTextBox1.setFocus();
    CRYTextBox1.selectAll();
}

// Only an empty list makes the last two ways fail, which is reported while the window is still there.
void AdvSearch::ChameleonButton17_Click() {
    m.runtime.reporting([this] {
        if (search() && m.compact.isShown()) m.compact.refresh();
    });
    Hide();
}

// False if there was nothing to go to: then the compact window stays as it is.
bool AdvSearch::search() {
    switch (m_searchMode) {
    case byTitle: return ignoring([this] { goToTitle(); });
    case byNumber: return ignoring([this] { goToNumber(); });
    case toLast: goToLast(); return true;
    default: goToFirst(); return true;
    }
}

// The selected game stays: the panel goes on showing it.
void AdvSearch::goToTitle() {
    const QString& title = CRYTextBox1.Text();
    const bool isBlank = title.isEmpty() || title == QStringLiteral(" ");
    const int row = isBlank ? -1 : m.shelf.rowOf(title);
    m.shelf.markRow(row);
    placeList(ListPages::ofTitle(row + 1, m.shelf.listPage()));
}

void AdvSearch::goToNumber() {
    const TypedNumber typed = TypedNumber::read(Text1.Text());
    m.shelf.markRow(typed.row - 1);
    m.shelf.select(typed.row - 1);
    placeList(ListPages::ofNumber(typed, typed.row, m.shelf.listPage()));
}

void AdvSearch::goToLast() {
    const int count = m.shelf.selected().count;
    m.shelf.markRow(count - 1);
    m.shelf.select(count - 1);
    placeList(ListPages::ofLast(count, m.shelf.listPage()));
}

void AdvSearch::goToFirst() {
    placeList(ListPages::ofFirst);
    m.shelf.markRow(0);
    m.shelf.select(0);
}

void AdvSearch::placeList(const ListPages::Top& top) {
    if (top) m.shelf.setListTop(*top);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// What the compact window's buttons, keys and drag do.
#include "Torvette.h"
#include "core/Desk.h"
#include "core/Foreground.h"
#include "core/SettingValues.h"
#include "platform/forms/PopupMenu.h"
#include "platform/forms/Screen.h"
#include "toolkit/Always_On_Top.h"

#include <QShortcut>

namespace torvane {

namespace {
// Twips.
constexpr int foldedHeight = 345;
constexpr int openHeight = 2010;
constexpr int margin = 200;        // how near to an edge the window snaps to it
constexpr int lowerMargin = 400;   // the same for the lower edge
constexpr int lowerDistance = 800; // from the lower edge to the top of a window that has snapped to it

// The buttons of a pair share one place: the other replaces the shown one, and takes its focus.
void exchange(chameleonButton& shown, chameleonButton& other) {
    const bool hadFocus = shown.hasFocus();
    other.setVisible(true);
    if (hadFocus) other.setFocus();
    shown.setVisible(false);
}
} // namespace

// Pictures alone say too little: the words are shown as tips, too.
void Torvette::nameButtons() {
    const std::initializer_list<std::pair<chameleonButton*, Wording>> names = {
        {&Edit_Menu, tip("previousgame", "Juego anterior")},
        {&chameleonButton1, tip("nextgame", "Juego siguiente")},
        {&chameleonButton2, {"MainMenu", "loadrom", "Cargar esta ROM"}},
        {&chameleonButton3, tip("mainwindow", "Volver a la ventana principal")},
        {&ChameleonButton4, tip("unfold", "Mostrar los datos del juego")},
        {&ChameleonButton6, tip("search", "Búsqueda Avanzada")},
        {&ChameleonButton7, tip("unpin", "No mantener siempre encima")},
        {&ChameleonButton9, tip("pin", "Mantener siempre encima")},
        {&ChameleonButton10, tip("fold", "Ocultar los datos del juego")},
    };
    for (const auto& [button, words] : names) wordings().addToolTip(*button, words);
}

// Puts the strip above the labels, so that the window can be dragged by all of it but the buttons.
void Torvette::liftStrip() {
    for (Label* label : {&Label3, &Label4, &Label5, &Label6, &Label7}) label->stackUnder(&Label2);
}

void Torvette::wireButtons() {
    // If the game is gone the window stays, so that the user can step on.
    wire(chameleonButton1, &chameleonButton::Click, &Torvette::next, Failure::reported);
    wire(Edit_Menu, &chameleonButton::Click, &Torvette::previous, Failure::reported);
    wire(chameleonButton2, &chameleonButton::Click, [this] { m.shelf.launch(); });
    wire(chameleonButton3, &chameleonButton::Click, [this] { Unload(); });
    wire(ChameleonButton4, &chameleonButton::Click, [this] { setFolded(false); });
    wire(ChameleonButton10, &chameleonButton::Click, [this] { setFolded(true); });
    wire(ChameleonButton6, &chameleonButton::Click, [this] { m.desk.go(id, Window::AdvSearch); });
    wire(ChameleonButton7, &chameleonButton::Click, [this] { setPinned(false); });
    wire(ChameleonButton9, &chameleonButton::Click, [this] { setPinned(true); });
    wire(m_dragStrip, &DragStrip::dropped, &Torvette::snap);
    wire(m_menuOpener, &MenuOpener::wanted, [this](QPoint place) { m.foreground.menu().popUp(place); });
    takeDrops();
    wire(*this, &Form::pathDropped, &Torvette::addGames, Failure::reported);
}

// Shortcuts take precedence over the keys of the focused button: Enter launches even after a click on another
// button.
void Torvette::wireKeys() {
    clicks(Edit_Menu, {Qt::Key_Left, Qt::Key_Up}, true);
    clicks(chameleonButton1, {Qt::Key_Right, Qt::Key_Down}, true);
    clicks(chameleonButton2, {Qt::Key_Return, Qt::Key_Enter}, false);
    clicks(chameleonButton3, {Qt::Key_Escape}, false);
}

void Torvette::clicks(chameleonButton& button, std::initializer_list<Qt::Key> keys, bool repeats) {
    for (const Qt::Key key : keys) {
        auto* shortcut = new QShortcut(key, this);
        shortcut->setAutoRepeat(repeats);
        connect(shortcut, &QShortcut::activated, &button, &chameleonButton::Click);
    }
}

void Torvette::next() {
    ignoring([this] { m.shelf.select(m.shelf.selected().index + 1); });
    showStep();
}

void Torvette::previous() {
    const int index = m.shelf.selected().index;
    if (index < 1) return;
    m.shelf.select(index - 1);
    showStep();
}

// While the panel is folded in, Tab skips its buttons.
void Torvette::setFolded(bool folded) {
    setHeight(folded ? foldedHeight : openHeight);
    folded ? exchange(ChameleonButton10, ChameleonButton4) : exchange(ChameleonButton4, ChameleonButton10);
    for (chameleonButton* button : {&ChameleonButton6, &ChameleonButton7, &ChameleonButton9}) {
        button->setFocusPolicy(folded ? Qt::NoFocus : Qt::StrongFocus);
    }
}

void Torvette::setPinned(bool pinned) {
    pinned ? exchange(ChameleonButton9, ChameleonButton7) : exchange(ChameleonButton7, ChameleonButton9);
    SetTopMost(*this, !pinned);
}

// On the screen of the main window, where the user is looking.
void Torvette::takeCorner() {
    const quint8 corner = ByteSetting(m.runtime.settings, "Mini", 1).value();
    const QRect screen = m.shelf.screen();
    const int left = screen.left() * twipsPerPixel;
    const int top = screen.top() * twipsPerPixel;
    if (corner == 0) moveTo(left, top);
    if (corner == 1) moveTo(left + screen.width() * twipsPerPixel - Width(), top);
}

void Torvette::takePin() { setPinned(NumberSetting(m.runtime.settings, "OnTop", 0).value() == 1); }

// Twips from the corner of the screen.
void Torvette::snap() {
    const QRect screen = Screen::geometryOf(*this);
    const QPoint origin = screen.topLeft() * twipsPerPixel;
    const QSize room = screen.size() * twipsPerPixel;
    int left = Left() - origin.x();
    int top = Top() - origin.y();
    if (left < margin) left = 0;
    if (left > room.width() - margin - Width()) left = room.width() - Width();
    if (top < margin) top = 0;
    if (top > room.height() - lowerMargin) top = room.height() - lowerDistance;
    moveTo(origin.x() + left, origin.y() + top);
}

void Torvette::addGames(const QString& path) { m.desk.go(id, Window::NewAssistant, {path}); }

void Torvette::queryUnload() {
    if (isEnabled()) Unload();
}

} // namespace torvane

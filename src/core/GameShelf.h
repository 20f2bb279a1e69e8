// SPDX-License-Identifier: MIT
// What other windows may ask of the main window: its selected game and its list. Implemented in app/ over
// the window itself, so that no other window includes it.
#pragma once

#include <QRect>
#include <QString>

namespace torvane {

struct SelectedGame {
    QString name;   ///< bare file name; empty if no game is selected
    QString path;   ///< spelled (see Paths); meaningless without a name
    int index = -1; ///< place in the list, counted from 0; -1 for none
    int count = 0;  ///< games in the list
    QString title;  ///< as the panel shows it: the tag's, or the text that says that there is none
};

/// All operations but `refresh`, `tagChanged`, `setTakesInput`, `restoreWindow` and `minimiseWindow` load the
/// main window if it is not there.
class GameShelf {
public:
    virtual ~GameShelf() = default;

    virtual SelectedGame selected() = 0;
    /// Selects a game by its place in the list and reads its tag, as a click on its row does. Fails with an
    /// invalid property value if there is no such place.
    virtual void select(int index) = 0;
    /// Lists the library anew and selects its first game. Does nothing while there is no main window.
    virtual void refresh() = 0;
    /// A game has got another tag. If it is the selected one its panel shows the new tag; what the user has
    /// typed into the fields and not saved stays. Does nothing while there is no main window.
    virtual void tagChanged(const QString& path) = 0;
    /// The launch action: plays the selected game.
    virtual void launch() = 0;
    /// Opens the page where games are searched for, in the browser.
    virtual void openSearchWeb() = 0;
    /// Gives the main window back its place on the screen if it is minimised; a hidden one stays hidden. Does
    /// nothing while there is no main window.
    virtual void restoreWindow() = 0;
    /// Minimises the main window, so that what it has started is in front. Does nothing while there is no
    /// main window.
    virtual void minimiseWindow() = 0;
    /// The whole screen that the main window is on, or was on when it was hidden, in device-independent
    /// pixels.
    virtual QRect screen() = 0;
    /// The row of the first game, counted from 0, whose title begins with a text, without regard to case; -1
    /// for none. A title is what the list shows of a file's name.
    virtual int rowOf(const QString& title) = 0;
    /// Marks a row of the list, counted from 0, and selects nothing: the panel keeps its game. Fails with
    /// subscript if there is no such row.
    virtual void markRow(int row) = 0;
    /// The height of a page of the list, in pixels.
    virtual float listPage() = 0;
    /// Sets the upper edge of the list within its panel, in pixels. If the marked row would be out of sight
    /// there, the user sees it all the same.
    virtual void setListTop(float pixels) = 0;
    /// Keeps the main window from taking input while a question is open, or lets it take input again if the
    /// user can see it. Does nothing while there is no main window.
    virtual void setTakesInput(bool takes) = 0;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Goes to a game of the main window's list: by the beginning of its title, by its number, to the last or to
// the first one. It has no list itself. After a run it hides, and keeps what the user typed and chose.
#pragma once

#include "AdvSearch.design.h"
#include "core/Services.h"
#include "core/Window.h"
#include "search/ListPages.h"

#include <QShortcut>

namespace torvane {

class AdvSearch : public AdvSearchDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::AdvSearch;

    explicit AdvSearch(const Services& services);

    /// Runs once after construction.
    void Load();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void wireOption(OptionButton& option, TVLabel& caption, quint8 mode);
    void ChameleonButton17_Click();
    bool search();
    void goToTitle();
    void goToNumber();
    void goToLast();
    void goToFirst();
    void placeList(const ListPages::Top& top);

    const Services& m;
    quint8 m_searchMode = 0; // the option that was clicked last
    QShortcut m_escape{Qt::Key_Escape, this};
};

} // namespace torvane

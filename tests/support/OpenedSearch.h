// SPDX-License-Identifier: MIT
// Shared by the tests of the search windows: the program, its library, and the windows as the user opens
// them.
#pragma once

#include "OpenedProgram.h"

#include <QLineEdit>

namespace torvane {

class OpenedSearch : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    void start() { opened = std::make_unique<OpenedProgram>(); }
    void end() { opened.reset(); }

    MainFrm& main() const { return opened->main(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    const QStringList& urls() const { return opened->world.browser.urls; }
    FakeMessages& messages() const { return opened->world.messages; }

    /// Opens the search in the list with the button of the main window.
    AdvSearch& openList() const {
        click(main().Searcher);
        AdvSearch* window = loaded<AdvSearch>();
        if (window == nullptr || !QTest::qWaitForWindowExposed(window)) qFatal("no search in the list");
        return *window;
    }
    /// Opens the search in the web likewise.
    SearchROM& openWeb() const {
        click(main().chameleonButton6);
        SearchROM* window = loaded<SearchROM>();
        if (window == nullptr || !QTest::qWaitForWindowExposed(window)) qFatal("no search in the web");
        return *window;
    }
    /// Runs a search in the list: chooses the way, fills both boxes, presses the button.
    void search(int way, const QString& title = {}, const QString& number = {}) const {
        AdvSearch& window = openList();
        OptionButton* options[] = {&window.Search_0, &window.Search_1, &window.Search_2, &window.Search_3};
        click(*options[way]);
        window.CRYTextBox1.setText(title);
        window.Text1.setText(number);
        click(window.ChameleonButton17);
    }
    /// The row of the list that is marked, counted from 1.
    int marked() const { return main().ListView1.currentRow() + 1; }
    float top() const { return main().ListView1.Top(); }
    /// Whether the marked row is inside the panel of the list, by what is painted there.
    bool isMarkedInSight() const {
        const ListView& list = main().ListView1;
        const QRect row = list.rowRect(list.currentRow());
        return main().Picture2.rect().contains(row.translated(list.pos())) && !row.isEmpty();
    }
    static void key(QWidget& window, Qt::Key code) { QTest::keyClick(window.windowHandle(), code); }
};

} // namespace torvane

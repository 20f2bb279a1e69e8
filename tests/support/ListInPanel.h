// SPDX-License-Identifier: MIT
// Shared by the tests of the list with pictures: the list in a panel of a shown window, as the main window
// has it.
#pragma once

#include "FakeWorld.h"
#include "NotedRows.h"
#include "TestForm.h"
#include "art/ArtResources.h"
#include "platform/forms/ListView.h"
#include "platform/forms/Panel.h"

namespace torvane {

class ListInPanel : public QObject {
protected:
    static constexpr int panelWidth = 233;
    static constexpr int rowHeight = 33;

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<Panel> panel;
    std::unique_ptr<ImageList> icons;
    std::unique_ptr<ListView> list;

    /// Shows a window with a panel of a height in pixels, and an empty list over all of it.
    void start(double panelHeight) {
        initArtResources();
        world = std::make_unique<FakeWorld>();
        FormDesign design = TestForm::plain;
        design.clientSize = {300, 400};
        form = std::make_unique<TestForm>(world->runtime, design);
        panel = std::make_unique<Panel>(*form, "panel", DesignRect{10, 10, panelWidth, panelHeight},
                                        Panel::Look{.back = 0x4A3933});
        icons = std::make_unique<ImageList>(
            *form, "icons",
            std::initializer_list<const char*>{"console-advance-32.png", "console-gameboy-32.png",
                                               "console-color-32.png", "console-archive-32.png"});
        makeList();
        QVERIFY(form->appear());
    }
    void end() {
        list.reset();
        icons.reset();
        panel.reset();
        form.reset();
        world.reset();
    }
    /// Makes a new list, also instead of an old one. In a shown window it is hidden at first.
    void makeList() {
        const double height = panel->height() - 3;
        list = std::make_unique<ListView>(*panel, "list", DesignRect{0, 1, panelWidth, height}, *icons);
    }
    void fill(int rows) const { list->setItems(std::make_shared<NotedRows>(rows)); }

    /// Where a row is in the panel, by what is seen there.
    QRect placeInPanel(int row) const {
        return {list->mapTo(panel.get(), list->rowRect(row).topLeft()), QSize(panelWidth, rowHeight)};
    }
    /// A click at a height of the panel, where the user sees it.
    void clickInPanel(int y) const { clickAt(*panel, {100, y}); }
};

} // namespace torvane

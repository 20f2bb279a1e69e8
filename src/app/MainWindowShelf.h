// SPDX-License-Identifier: MIT
// The main window as the modules and the other windows see it.
#pragma once

#include "Windows.h"
#include "core/Funciones.h"
#include "core/GameShelf.h"
#include "core/TraySign.h"

namespace torvane {

class MainWindowShelf : public GameShelf, public MainWindowReach, public TraySign {
public:
    MainWindowShelf(Windows& windows, const Globals& globals) : m_windows(windows), m_globals(globals) {}

    /// The place of a game in the list, counted from 0, by its exact bare file name; -1 if it is not listed.
    /// Loads the main window if it is not there.
    int placeOf(const QString& name);
    /// Selects a game as `select` does. Its row comes into sight even if it was the selected one already.
    void selectInSight(int index);

    // GameShelf
    SelectedGame selected() override;
    void select(int index) override;
    void refresh() override;
    void tagChanged(const QString& path) override;
    void launch() override;
    void openSearchWeb() override;
    void restoreWindow() override;
    void minimiseWindow() override;
    QRect screen() override;
    int rowOf(const QString& title) override;
    void markRow(int row) override;
    float listPage() override;
    void setListTop(float pixels) override;
    void setTakesInput(bool takes) override;

    // MainWindowReach
    void followLink(const QString& url) override;
    void pointGamesAtLibrary() override;

    // TraySign
    void setTrayPicture(const QString& path) override;
    void setTrayShown(bool shown) override;

private:
    MainFrm& window();

    Windows& m_windows;
    const Globals& m_globals;
};

} // namespace torvane

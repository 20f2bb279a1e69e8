// SPDX-License-Identifier: MIT
// Requests to the main window.
#include "MainWindowShelf.h"
#include "platform/forms/Screen.h"

namespace torvane {

MainFrm& MainWindowShelf::window() {
    MainFrm* window = m_windows.slot<MainFrm>().load();
    if (window == nullptr) throw RuntimeFailure(RuntimeFailure::noObject);
    return *window;
}

SelectedGame MainWindowShelf::selected() {
    MainFrm& main = window();
    const FileList& games = main.Games;
    return {games.FileName(), games.filePath(), games.ListIndex(), games.ListCount(),
            main.GameTitle.Caption()};
}

void MainWindowShelf::select(int index) { window().Games.setListIndex(index); }

void MainWindowShelf::refresh() {
    MainFrm* window = m_windows.slot<MainFrm>().ifLoaded();
    if (window == nullptr) return;
    window->File1.Refresh();
    window->Games.Refresh();
    window->Refresh_Click();
}

void MainWindowShelf::tagChanged(const QString& path) {
    if (MainFrm* window = m_windows.slot<MainFrm>().ifLoaded()) window->tagChanged(path);
}

void MainWindowShelf::launch() { window().Label15_Click(); }

void MainWindowShelf::openSearchWeb() { window().OpenSearchWeb(); }

void MainWindowShelf::restoreWindow() {
    if (MainFrm* window = m_windows.slot<MainFrm>().ifLoaded()) window->setWindowStateWord(Form::normal);
}

int MainWindowShelf::rowOf(const QString& title) { return window().rowOf(title); }

void MainWindowShelf::markRow(int row) { window().ListView1.markRow(row); }

float MainWindowShelf::listPage() { return static_cast<float>(window().Picture2.height()); }

float MainWindowShelf::listTop() { return window().ListView1.Top(); }

void MainWindowShelf::setListTop(float pixels) { window().ListView1.setTopForCurrent(pixels); }

QRect MainWindowShelf::screen() { return Screen::geometryOf(window()); }

void MainWindowShelf::setTakesInput(bool takes) {
    MainFrm* window = m_windows.slot<MainFrm>().ifLoaded();
    if (window == nullptr || (takes && !window->isVisible())) return;
    window->setEnabled(takes);
}

void MainWindowShelf::followLink(const QString& url) {
    window().URL_Linker.setURL(url);
    window().URL_Linker.UserClick();
}

void MainWindowShelf::pointGamesAtLibrary() { window().Games.setPath(m_globals.libraryFolder()); }

void MainWindowShelf::setTrayPicture(const QString& path) { window().TrayIcon1.setPicture(path); }

void MainWindowShelf::setTrayShown(bool shown) { window().TrayIcon1.setShown(shown); }

} // namespace torvane

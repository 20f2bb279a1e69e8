// SPDX-License-Identifier: MIT
// Requests to the main window.
#include "MainWindowShelf.h"
#include "platform/base/NativeText.h"
#include "platform/forms/Screen.h"

#include <QTimer>
#include <QWindow>

namespace torvane {

namespace {
// Minimises a window that has just been shown, as soon as it has appeared. It goes with the window.
class Minimiser : public QObject {
public:
    explicit Minimiser(Form& window) : QObject(&window), m_window(window) {
        window.windowHandle()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Expose && m_window.windowHandle()->isExposed()) {
            m_window.windowHandle()->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] {
                if (m_window.isVisible()) m_window.setWindowStateWord(Form::minimised);
                deleteLater();
            });
        }
        return false;
    }

private:
    Form& m_window;
};

// A window that appears is activated, which brings it back if it has been minimised before.
void minimiseOnceShown(Form& window) {
    if (!window.isVisible() || window.windowHandle()->isExposed()) {
        window.setWindowStateWord(Form::minimised);
    } else {
        new Minimiser(window);
    }
}
} // namespace

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

int MainWindowShelf::placeOf(const QString& name) {
    return window().Games.names()->indexOf(NativeText::toNative(name));
}

void MainWindowShelf::select(int index) { window().Games.setListIndex(index); }

void MainWindowShelf::selectInSight(int index) {
    select(index);
    window().ListView1.setTopForCurrent(window().ListView1.Top());
}

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

void MainWindowShelf::minimiseWindow() {
    if (MainFrm* window = m_windows.slot<MainFrm>().ifLoaded()) minimiseOnceShown(*window);
}

int MainWindowShelf::rowOf(const QString& title) { return window().rowOf(title); }

void MainWindowShelf::markRow(int row) { window().ListView1.markRow(row); }

float MainWindowShelf::listPage() { return static_cast<float>(window().Picture2.height()); }

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

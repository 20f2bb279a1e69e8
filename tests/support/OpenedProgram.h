// SPDX-License-Identifier: MIT
// The program in an environment of its own, and its user: clicks and keys pass through the window system, so
// that covered, hidden or disabled controls get none.
#pragma once

#include "FakeWorld.h"
#include "app/Program.h"
#include "art/ArtResources.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace torvane {

/// A click in the middle of a control, or at a point in it.
inline void click(const QWidget& control, QPoint place = {}, Qt::MouseButton button = Qt::LeftButton) {
    QWidget* window = control.window();
    const QPoint inside = place.isNull() ? control.rect().center() : place;
    QTest::mouseClick(window->windowHandle(), button, {}, control.mapTo(window, inside));
}
inline void doubleClick(const QWidget& control, QPoint place) {
    QWidget* window = control.window();
    QTest::mouseDClick(window->windowHandle(), Qt::LeftButton, {}, control.mapTo(window, place));
}
/// Mouse events of a click, or of a double click at its end, that wait until the program serves events again,
/// as those of a user who clicks on a program that is busy.
inline void postClick(const QWidget& control, QPoint place = {}, bool isDouble = false) {
    QWidget* window = control.window();
    const QPoint inside = control.mapTo(window, place.isNull() ? control.rect().center() : place);
    QList<QEvent::Type> types{QEvent::MouseButtonPress, QEvent::MouseButtonRelease};
    if (isDouble) types += {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease};
    for (const QEvent::Type type : types) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QCoreApplication::postEvent(
            window->windowHandle(),
            new QMouseEvent(type, inside, window->mapToGlobal(inside), Qt::LeftButton, held, {}));
    }
}
/// A key press that waits in the same way.
inline void postKey(const QWidget& window, Qt::Key key) {
    QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(QEvent::KeyPress, key, {}));
}
/// Moves the pointer onto a control.
inline void hover(const QWidget& control) {
    QWidget* window = control.window();
    QTest::mouseMove(window->windowHandle(), control.mapTo(window, control.rect().center()));
}
/// Types a text into a field, one key per character, even characters that no usual keyboard has.
inline void typeText(QWidget& field, const QString& text) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&field, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(&field, &release);
    }
}
/// Whether the user sees a control: it, its containers and its window are shown.
inline bool isSeen(const QWidget& control) { return control.isVisible(); }

/// Deletes the windows that have been unloaded.
inline void collectGone() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

class OpenedProgram {
    // The name of a temporary folder starts with that of the application. The program would take a dot in it
    // for the start of an extension.
    struct PlainName {
        PlainName() { QCoreApplication::setApplicationName(QStringLiteral("torvane-test")); }
    } m_plainName;

public:
    FakeWorld world;
    std::unique_ptr<Program> program;

    /// In English and without the intro; a test can change that before it opens the program.
    OpenedProgram() {
        initArtResources();
        world.useLanguage("eng");
        world.setSetting("Intro", QStringLiteral("0"));
    }
    ~OpenedProgram() { close(); }
    OpenedProgram(const OpenedProgram&) = delete;
    OpenedProgram& operator=(const OpenedProgram&) = delete;

    /// Writes a game into the library; gives its path.
    QString game(const QString& name, const QByteArray& bytes = QByteArray(3000, 'r')) const {
        return world.folder.write(QStringLiteral("roms/") + name, bytes);
    }
    void games(int count) const {
        for (int i = 1; i <= count; ++i) game(QStringLiteral("g%1.gb").arg(i, 3, 10, QLatin1Char('0')));
    }
    QByteArray bytesOf(const QString& name) const {
        return world.folder.read(QStringLiteral("roms/") + name);
    }

    /// Runs the start of the program as the process does.
    Program& start() {
        program = std::make_unique<Program>(world.runtime, world.appPath());
        program->start();
        return *program;
    }
    /// Starts the program and waits until the main window is shown.
    MainFrm& open() {
        start();
        MainFrm& window = main();
        if (!QTest::qWaitForWindowExposed(&window)) qFatal("no main window");
        return window;
    }
    MainFrm& main() const { return *program->load<MainFrm>(); }
    void close() {
        program.reset();
        collectGone();
    }
    /// The text of a key in English.
    QString text(const char* section, const char* key) const {
        return program->language.LangText(QString::fromLatin1(section), QString::fromLatin1(key));
    }
    /// A click on a row of the game list, which must be visible.
    void chooseRow(int row) const { click(main().ListView1, rowPlace(row)); }
    QPoint rowPlace(int row) const { return main().ListView1.rowRect(row).center(); }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Opening files of a start.
#include "OpenFiles.h"
#include "Program.h"
#include "platform/base/Paths.h"
#include "platform/base/SystemCalls.h"
#include "platform/forms/RunningHandler.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <utility>

namespace torvane {

namespace {
// ms between two looks whether waiting files can be opened. Too many things decide that for a signal of each.
constexpr int lookDelay = 100;

bool areSameFile(const QString& one, const QString& other) {
    struct stat first {};
    struct stat second {};
    return stat(Paths::real(one).constData(), &first) == 0 &&
           stat(Paths::real(other).constData(), &second) == 0 && isSameFile(first, second);
}

// The path with all its links followed; as given if that fails.
QString followed(const QString& path) {
    std::array<char, PATH_MAX> real{};
    const bool isFound = realpath(Paths::real(path).constData(), real.data()) != nullptr;
    return isFound ? Paths::spelled(real.data()) : path;
}
} // namespace

OpenFiles::OpenFiles(Program& program) : m_program(program) {
    m_look.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &OpenFiles::goOn);
}

void OpenFiles::open(const QByteArrayList& paths) {
    for (const QByteArray& path : paths) m_waiting.append(Paths::spelled(path));
    if (!m_waiting.isEmpty()) m_look.start(0);
}

void OpenFiles::goOn() {
    const bool isFree = !RunningHandler::isAny() && m_program.foreground.takesOrders();
    if (!isFree) return m_look.start(lookDelay);
    const QStringList files = std::exchange(m_waiting, {});
    m_program.runtime.reporting([&] { openNow(files); });
}

// Of several games the last one stays selected; the others would not be seen. The assistant takes one file
// after the other.
void OpenFiles::openNow(const QStringList& files) {
    m_isListFresh = false;
    QString game;
    QStringList others;
    for (const QString& file : files) {
        const QString name = nameInLibrary(file);
        if (name.isEmpty()) {
            others.append(file);
        } else {
            game = name;
        }
    }
    if (!game.isEmpty()) m_program.runtime.reporting([&] { select(game); });
    if (!others.isEmpty()) m_program.desk.go(m_program.foreground.face(), Window::NewAssistant, others);
}

// The name of the listed game that is this file; empty if none is. The library may have a link to the file,
// or the path may be one to the game.
QString OpenFiles::nameInLibrary(const QString& file) {
    const QString folder = m_program.globals.libraryFolder() + QLatin1Char('\\');
    for (const QString& path : {file, followed(file)}) {
        QString name = Paths::bareName(path);
        if (areSameFile(folder + name, file) && isListed(name)) return name;
    }
    return {};
}

// The game may have come into the library after the list was read.
bool OpenFiles::isListed(const QString& name) {
    if (m_program.shelf.placeOf(name) >= 0) return true;
    if (std::exchange(m_isListFresh, true)) return false;
    m_program.shelf.refresh();
    return m_program.shelf.placeOf(name) >= 0;
}

void OpenFiles::select(const QString& name) {
    m_program.shelf.selectInSight(m_program.shelf.placeOf(name));
    m_program.compact.refresh();
}

} // namespace torvane

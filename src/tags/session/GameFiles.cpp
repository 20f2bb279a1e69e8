// SPDX-License-Identifier: MIT
// Looking operands up, and reading folders.
#include "GameFiles.h"
#include "Reports.h"
#include "platform/base/Paths.h"
#include "platform/base/SystemCalls.h"

namespace torvane {

namespace {
bool isAt(const QByteArray& path, struct stat& info) { return stat(path.constData(), &info) == 0; }

QByteArray withSlash(QByteArray folder) {
    while (folder.endsWith("//")) folder.chop(1);
    return folder.isEmpty() || folder.endsWith('/') ? folder : folder + '/';
}
} // namespace

QByteArray GameFiles::found(const QByteArray& name, const QByteArray& library) {
    struct stat info {};
    if (isAt(name, info)) return name;
    const int error = errno;
    QByteArray inLibrary = withSlash(library) + name;
    if (!name.startsWith('/') && isAt(inLibrary, info)) return inLibrary;
    throw RuntimeFailure::fromErrno(error);
}

void GameFiles::add(const QByteArray& operand) {
    try {
        const GameFile game{operand, found(operand, m_library)};
        struct stat info {};
        if (isAt(game.path, info) && S_ISDIR(info.st_mode)) return addFolder(game);
        m_sources.push_back({game, nullptr});
        ++m_count;
    } catch (const RuntimeFailure& failure) {
        report(operand, failure);
    }
}

void GameFiles::addLibrary() {
    try {
        addFolder({QByteArray(), m_library});
    } catch (const RuntimeFailure& failure) {
        report(m_library, failure);
    }
}

void GameFiles::addFolder(const GameFile& folder) {
    const QString spelled = Paths::spelled(folder.path);
    FolderNames::requireReadable(spelled);
    const auto names = FolderNames::read(spelled, gamePatterns);
    m_sources.push_back({{withSlash(folder.name), withSlash(folder.path)}, names});
    m_count += names->count();
}

void GameFiles::report(const QByteArray& name, const RuntimeFailure& failure) {
    ++m_faults;
    m_reports.fault(name, failure);
}

void GameFiles::visit(const std::function<bool(const GameFile&)>& take) const {
    for (const Source& source : m_sources) {
        if (!source.names && !take(source.start)) return;
        const int count = source.names ? source.names->count() : 0;
        for (int i = 0; i < count; ++i) {
            const QByteArray name = source.names->bytes(i).toByteArray();
            if (!take({source.start.name + name, source.start.path + name})) return;
        }
    }
}

} // namespace torvane

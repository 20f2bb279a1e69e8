// SPDX-License-Identifier: MIT
// The program's use of the link between its instances.
#include "OneInstance.h"
#include "platform/base/RuntimeFolder.h"
#include "platform/forms/InstanceListener.h"

#include <QCryptographicHash>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace torvane {

namespace {
const char programName[] = "torvane";

// The path with all links followed, as far as it exists.
QByteArray followedPath(const QByteArray& path) {
    std::array<char, PATH_MAX> real{};
    if (realpath(path.constData(), real.data()) != nullptr) return real.data();
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? path : followedPath(path.first(slash)) + path.sliced(slash);
}

// Paths are longer than names of files may be.
QByteArray linkName(const QByteArray& folder) {
    constexpr qsizetype enough = 32;
    const QByteArray hash = QCryptographicHash::hash(followedPath(folder), QCryptographicHash::Sha256);
    return QByteArray(programName) + '-' + hash.toHex().first(enough);
}

int failed(const char* reason) {
    std::fprintf(stderr, "torvane: %s\n", reason);
    return EXIT_FAILURE;
}
} // namespace

OneInstance::OneInstance(const QByteArray& folder) {
    auto runtimeFolder = openRuntimeFolder(RuntimePlaces::ofEnvironment(programName));
    if (runtimeFolder) m_link.emplace(std::move(*runtimeFolder), linkName(folder));
}

OneInstance::~OneInstance() = default;

std::optional<int> OneInstance::handOver(const StartCall& call) {
    if (!m_link) return std::nullopt;
    switch (m_link->meet(call.packed(), {})) {
    case InstanceLink::Role::second: return EXIT_SUCCESS;
    case InstanceLink::Role::unanswered: return failed("the running one does not answer");
    case InstanceLink::Role::tooLong: return failed("too many files for the running one");
    case InstanceLink::Role::first:
    case InstanceLink::Role::unlinked: break;
    }
    return std::nullopt;
}

void OneInstance::listen(const std::function<void(const StartCall&)>& called) {
    m_called = called;
    Handle listener = m_link ? m_link->takeListener() : Handle();
    if (!listener.isOpen()) return;
    m_listener = std::make_unique<InstanceListener>(std::move(listener));
    QObject::connect(m_listener.get(), &InstanceListener::received, m_listener.get(),
                     [this](const QByteArray& message) { report(message); });
}

// A program of another version may say what this one does not understand: its user wants a window all the
// same.
void OneInstance::report(const QByteArray& message) const {
    m_called(StartCall::unpacked(message).value_or(StartCall()));
}

std::optional<StartCall> OneInstance::close() {
    std::optional<StartCall> all;
    listen([&all](const StartCall& call) {
        const QByteArrayList files = all ? all->files : QByteArrayList();
        all = {call.startupId, call.activationToken, files + call.files};
    });
    if (m_listener) m_listener->close();
    m_called = [](const StartCall&) {};
    return all;
}

} // namespace torvane

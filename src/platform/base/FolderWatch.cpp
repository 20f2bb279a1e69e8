// SPDX-License-Identifier: MIT
// Events of a folder and of the one above it.
#include "FolderWatch.h"

#include <array>
#include <cstring>
#include <sys/inotify.h>

namespace torvane {

namespace {
// The same for both folders, as they may be one: a second call for a folder replaces what it was watched for.
constexpr quint32 watchedFor = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                               IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
} // namespace

FolderWatch::FolderWatch(std::chrono::milliseconds quiet) : m_quiet(quiet) {
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &FolderWatch::report);
}

void FolderWatch::watch(const QByteArray& path) {
    m_path = path;
    const qsizetype cut = path.lastIndexOf('/');
    m_parent = cut > 0 ? path.first(cut) : QByteArray(cut == 0 ? "/" : ".");
    m_name = path.sliced(cut + 1);
    open();
    attach();
}

void FolderWatch::open() {
    if (m_events.isOpen()) return;
    m_events = Handle(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!m_events.isOpen()) return;
    m_notifier = std::make_unique<QSocketNotifier>(m_events.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &FolderWatch::wake);
}

// The path may lead to another folder by now.
void FolderWatch::attach() {
    if (!m_events.isOpen()) return;
    follow(m_parentMark, m_parent);
    follow(m_folderMark, m_path);
}

void FolderWatch::follow(int& mark, const QByteArray& path) const {
    const int fresh = inotify_add_watch(m_events.number(), path.constData(), watchedFor);
    if (mark >= 0 && mark != fresh) inotify_rm_watch(m_events.number(), mark);
    mark = fresh;
}

// The rest of a crowd of events waits in the kernel: ten thousand new files wake the program a few times.
void FolderWatch::wake() {
    if (!takeEvents()) return;
    m_notifier->setEnabled(false);
    m_rest.start(m_quiet);
}

// The watch is renewed before the report, so that nothing is lost that happens while the folder is being
// read.
void FolderWatch::report() {
    if (takeEvents()) return m_rest.start(m_quiet);
    m_notifier->setEnabled(true);
    attach();
    emit changed();
}

bool FolderWatch::takeEvents() const {
    std::array<char, 1 << 16> buffer;
    bool isAny = false;
    for (;;) {
        const ssize_t got =
            uninterrupted([&] { return read(m_events.number(), buffer.data(), buffer.size()); });
        if (got <= 0) return isAny;
        for (const char* at = buffer.data(); at < buffer.data() + got;) {
            inotify_event event{};
            std::memcpy(&event, at, sizeof event);
            const char* name = at + sizeof event;
            isAny |= isChange(event.wd, event.mask, {name, static_cast<qsizetype>(strnlen(name, event.len))});
            at = name + event.len;
        }
    }
}

// Where the queue of the kernel was too short, anything may have happened.
bool FolderWatch::isChange(int mark, quint32 kind, QByteArrayView name) const {
    if ((kind & IN_Q_OVERFLOW) != 0) return true;
    if ((kind & IN_IGNORED) != 0) return false;
    if (mark == m_folderMark && !name.startsWith('.')) return true;
    return mark == m_parentMark && name == m_name;
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Reading the two files, and all changes of them.
#include "WebLists.h"
#include "WebFields.h"
#include "platform/base/File.h"
#include "platform/base/SafeFile.h"

namespace torvane {

namespace {
constexpr const char* lineEnd = "\r\n";

QByteArray wholeOf(const SafeFile::Change& change) {
    if (change.length() > WebLists::mostBytes) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return change.readAt(0, change.length());
}

void appendTo(const QString& path, const QByteArray& line) {
    const SafeFile::Change change(path);
    if (change.length() + line.size() > WebLists::mostBytes)
        throw RuntimeFailure(RuntimeFailure::outOfMemory);
    change.commit(change.length(), {line});
}
} // namespace

WebLists::Reading WebLists::read() const {
    const auto entries = std::make_shared<WebEntries>();
    const bool isWhole = ignoring([&] {
        for (const QString& path : {sharedPath(), ownPath()})
            entries->append(File::contentOf(path, mostBytes));
    });
    return {entries, isWhole};
}

std::optional<QByteArray> WebLists::shared() const {
    try {
        return File::contentOf(sharedPath(), mostBytes);
    } catch (const RuntimeFailure& failure) {
        switch (failure.number()) {
        case RuntimeFailure::fileNotFound: return QByteArray();
        case RuntimeFailure::outOfMemory: return std::nullopt;
        default: throw;
        }
    }
}

void WebLists::replaceShared(QByteArray body) const {
    body += lineEnd;
    SafeFile::replace(sharedPath(), body);
}

void WebLists::add(const QString& name, const QString& address) const {
    const QByteArray line = lineEnd + WebFields::lineOf(name, address, QStringLiteral("perso")) + lineEnd;
    const QString path = ownPath();
    try {
        aboutFile(path, [&] { appendTo(path, line); });
    } catch (const RuntimeFailure& failure) {
        // Treating any other failure as a missing file would lose its content.
        if (failure.number() != RuntimeFailure::fileNotFound) throw;
        SafeFile::replace(path, line);
    }
}

void WebLists::remove(const QByteArray& line) const {
    const QString path = ownPath();
    aboutFile(path, [&] {
        const SafeFile::Change change(path);
        const QByteArray old = wholeOf(change);
        const WebFields::Remains rest = WebFields::without(old, line);
        if (!rest.isFound) throw RuntimeFailure(RuntimeFailure::subscript);
        change.keepBackup(folder(), QByteArrayLiteral("url_perso.bak"));
        change.commit({rest.before, lineEnd, rest.after, lineEnd});
    });
}

} // namespace torvane

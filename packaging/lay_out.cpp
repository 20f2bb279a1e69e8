// SPDX-License-Identifier: MIT
// Lays out the program's folder at build time: merges source trees into DEST by the rules of home/LayOut.h,
// as the installed program does with a user's folder. What it lays out in a package is a template for that.
//
// Usage: torvane_lay_out [--version VERSION] DEST SOURCE_TREE...      If two trees have the same path, the
// later tree wins. Exits with 0 if all is in place, 1 if something could not be read or written, 2 on wrong
// usage.
#include "home/LayOut.h"
#include "platform/base/NativeText.h"

#include <cstdio>

namespace {
using torvane::LayOut;
using torvane::RuntimeFailure;

int usage(const char* wrong) {
    std::fprintf(stderr, "lay-out: %s\nusage: lay-out [--version VERSION] DEST SOURCE_TREE...\n", wrong);
    return 2;
}

// Without separators at its end; a relative one begins with "./", since no library must take it for an
// option.
QByteArray anchored(const char* path) {
    QByteArray anchored = path[0] == '/' ? QByteArray(path) : QByteArray("./") + path;
    while (anchored.endsWith('/')) anchored.chop(1);
    return anchored;
}

bool isFolder(const char* path) {
    struct stat info {};
    return stat(path, &info) == 0 && S_ISDIR(info.st_mode);
}

void complain(const char* what, const std::vector<RuntimeFailure>& failures) {
    for (const RuntimeFailure& failure : failures) {
        std::fprintf(stderr, "lay-out: cannot %s %s: %s\n", what,
                     torvane::NativeText::toNative(failure.file()).constData(),
                     failure.text().toUtf8().constData());
    }
}

int layOut(const QByteArray& version, const QByteArray& folder, const QByteArrayList& trees) {
    std::vector<RuntimeFailure> unread;
    const LayOut::Report report = LayOut(folder, torvane::SourceTree::gathered(trees, version, unread)).run();
    complain("read", unread);
    complain("write", report.failures);
    for (const QByteArray& path : report.missing) {
        std::fprintf(stderr, "lay-out: %s has just been changed\n", path.constData());
    }
    if (report.created + report.updated > 0) {
        std::printf("Laid out: %d new, %d updated, %d left as they are\n", report.created, report.updated,
                    report.kept);
    }
    return unread.empty() && report.failures.empty() && report.missing.isEmpty() ? 0 : 1;
}
} // namespace

int main(int argc, char** argv) {
    QByteArray version;
    char** given = argv + 1;
    if (argc > 2 && qstrcmp(given[0], "--version") == 0) {
        version = given[1];
        given += 2;
    }
    if (argv + argc - given < 2) return usage("too few arguments");
    if (*given[0] == '\0') return usage("an empty name");
    QByteArrayList trees;
    for (char** tree = given + 1; tree < argv + argc; ++tree) {
        if (!isFolder(*tree)) return usage("no such tree");
        trees.append(anchored(*tree));
    }
    return layOut(version, anchored(given[0]), trees);
}

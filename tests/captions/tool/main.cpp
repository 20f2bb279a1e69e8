// SPDX-License-Identifier: MIT
// Examines language files. Usage: torvane_language_check FILE... Prints the faults of each; ends with 0 if
// there are none, 1 if there are, 2 if a file can't be read.
#include "art/ArtResources.h"
#include "captions/LanguageCheck.h"
#include "platform/base/IniFile.h"

#include <QApplication>
#include <cstdio>

namespace {
int check(torvane::LanguageCheck& languages, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(path), qPrintable(file.errorString()));
        return 2;
    }
    // One byte more than the program reads is enough to know that there are too many.
    const QStringList faults = languages.faultsOf(file.read(torvane::IniFile::largestFile + 1));
    for (const QString& fault : faults) std::printf("%s: %s\n", qPrintable(path), qPrintable(fault));
    if (faults.isEmpty()) std::printf("%s: complete, and every text fits\n", qPrintable(path));
    return faults.isEmpty() ? 0 : 1;
}
} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    torvane::initArtResources();
    const QStringList paths = QApplication::arguments().sliced(1);
    if (paths.isEmpty()) {
        std::fputs("usage: torvane_language_check FILE...\n", stderr);
        return 2;
    }
    torvane::LanguageCheck languages;
    int result = 0;
    for (const QString& path : paths) result = std::max(result, check(languages, path));
    return result;
}

// SPDX-License-Identifier: MIT
// Looking reasons up.
#include "FailureTexts.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"

#include <algorithm>
#include <array>

namespace torvane {

namespace {
using Reason = RuntimeFailure::Reason;

struct Words {
    RuntimeFailure::Number number; ///< none where the reason counts, whatever the number
    Reason reason;
    const char* key; ///< in the section "Failures"
    const char* english;
};

constexpr std::array table = {
    Words{RuntimeFailure::none, Reason::tag, "tag", "its ROM.TAG can’t be understood, so it stays as it was"},
    Words{RuntimeFailure::none, Reason::inUse, "inuse", "another program is writing to it"},
    Words{RuntimeFailure::none, Reason::changed, "changed", "another program has just changed it"},
    Words{RuntimeFailure::none, Reason::sameFile, "samefile", "a file can’t be copied onto itself"},
    Words{RuntimeFailure::none, Reason::noFolder, "nofolder", "it is not a folder"},
    Words{RuntimeFailure::none, Reason::noHome, "nohome", "you have no home folder"},
    Words{RuntimeFailure::outOfMemory, Reason::none, "7", "it is too large"},
    Words{RuntimeFailure::fileNotFound, Reason::none, "53", "it doesn’t exist"},
    Words{RuntimeFailure::deviceError, Reason::none, "57", "the disk reports an error"},
    Words{RuntimeFailure::diskFull, Reason::none, "61", "the disk is full"},
    Words{RuntimeFailure::permissionDenied, Reason::none, "70", "you don’t have permission to do that"},
    Words{RuntimeFailure::pathAccess, Reason::none, "75",
          "it is no ordinary file, or it is on a disk that can’t be written to"},
    Words{RuntimeFailure::pathNotFound, Reason::none, "76", "its folder doesn’t exist"},
    Words{RuntimeFailure::printer, Reason::none, "482", "it didn’t accept the page"},
};

// The name of a file or folder as Qt can show it, whatever bytes it has.
QString shownName(QString path) {
    while (path.endsWith(QLatin1Char('\\'))) path.chop(1);
    return QString::fromUtf8(NativeText::toNative(Paths::bareName(path)));
}

bool isOf(const Words& words, const RuntimeFailure& failure) {
    return words.reason == Reason::none ? failure.reason() == Reason::none && words.number == failure.number()
                                        : words.reason == failure.reason();
}
} // namespace

QString FailureTexts::reason(const RuntimeFailure& failure) const {
    const auto* words =
        std::find_if(table.begin(), table.end(), [&](const Words& row) { return isOf(row, failure); });
    return words == table.end() ? failure.text() : m_texts(words->key, QString::fromUtf8(words->english));
}

QString FailureTexts::of(const RuntimeFailure& failure) const {
    if (failure.file().isEmpty()) return failure.boxText();
    return QStringLiteral("%1: %2 (%3)")
        .arg(shownName(failure.file()), reason(failure), QString::number(failure.number()));
}

} // namespace torvane

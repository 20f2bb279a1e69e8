// SPDX-License-Identifier: MIT
// INI files of any bytes: a value is what a plain line-by-line reading gives; a written value is read again,
// and every other value stays. Most runs work on bytes alone; one in 32 uses a real file, too, since that
// takes ten times as long.
// Input: section, key and value, how often to write, and the file.
#include "Fuzz.h"
#include "IniReference.h"
#include "platform/base/IniFile.h"
#include "platform/base/RuntimeFailure.h"

#include <optional>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
struct IniChange {
    QByteArray section, key, value;

    std::pair<std::string, std::string> place() const {
        return {lowerCase(section.toStdString()), lowerCase(key.toStdString())};
    }
    // Nothing if the value is refused.
    std::optional<QByteArray> appliedTo(const QByteArray& content) const {
        try {
            return IniFile::withValue(content, section, key, value);
        } catch (const RuntimeFailure& failure) {
            require(failure.number() == RuntimeFailure::invalidCall, "only what no line holds is refused");
            return std::nullopt;
        }
    }
};

void checkRead(const IniChange& at, const QByteArray& content) {
    const IniValues values = iniValues(content.toStdString());
    const auto found = values.find(at.place());
    const std::optional<QByteArray> value = IniFile::valueIn(content, at.section, at.key);
    require(value.has_value() == (found != values.end()), "a value is found if there is one");
    if (value) require(value->toStdString() == found->second, "a value is read unchanged");
}

void checkWrite(const IniChange& change, const QByteArray& content, const QByteArray& changed) {
    IniValues expected = iniValues(content.toStdString());
    expected[change.place()] = change.value.toStdString();
    require(iniValues(changed.toStdString()) == expected, "one value is changed and all others are kept");
}

// The layout of a handwritten file may change with the first writes, but not after that.
void checkBecomesStable(const IniChange& change, QByteArray content) {
    for (int i = 0; i < 3; ++i) content = change.appliedTo(content).value();
    require(change.appliedTo(content) == content, "writing the same changes no byte");
}

void checkFile(const IniChange& change, const QByteArray& content, const std::optional<QByteArray>& changed) {
    static const Scratch folder;
    static const QString path = QString::fromStdString(folder.path() + "/a.ini");
    folder.write("a.ini", content.toStdString());
    require(IniFile::value(path, change.section, change.key) ==
                IniFile::valueIn(content, change.section, change.key),
            "a file's value is that of its content");
    const bool isWritten =
        ignoring([&] { IniFile::setValue(path, change.section, change.key, change.value); });
    require(isWritten == changed.has_value(), "a file takes the same values");
    require(folder.read("a.ini") == changed.value_or(content).toStdString(), "a refusal changes nothing");
}
} // namespace

FUZZ_TARGET(ini) {
    Input input(data, size);
    const IniChange change{input.piece(), input.piece(), input.piece()};
    const bool writesOften = input.byte() % 4 == 3;
    const QByteArray content = input.rest();
    checkRead(change, content);
    const std::optional<QByteArray> changed = change.appliedTo(content);
    if (changed) checkWrite(change, content, *changed);
    if (changed && writesOften) checkBecomesStable(change, *changed);
    if (isOneIn32(data, size)) checkFile(change, content, changed);
    return 0;
}

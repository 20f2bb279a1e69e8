// SPDX-License-Identifier: MIT
// The settings store over a file of any bytes: what is stored round-trips, and all else in the file stays.
// Most runs work on bytes alone; one in 32 uses a real file, too, since that takes ten times as long.
// Input: whether the texts are names or paths, section, key, value, and the file.
#include "platform/base/Settings.h"
#include "Fuzz.h"
#include "IniReference.h"
#include "NameReference.h"
#include "platform/base/IniFile.h"
#include "platform/base/NativeText.h"
#include "platform/base/RuntimeFailure.h"
#include "platform/base/SettingLine.h"
#include "support/TagReference.h"

#include <QStringList>
#include <climits>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
const QString saver = QStringLiteral("Torvane");
const QString absent = QStringLiteral("(absent)");

// Texts that the program can encounter: file names of any bytes, and paths of such names.
QString textOf(Input& input, bool isName) {
    return isName ? NativeText::fromNative(input.piece()) : spelledPath(input.piece());
}

const Scratch& folder() {
    static const Scratch one;
    return one;
}

Settings& settings() {
    static Settings store(QString::fromStdString(folder().path()));
    return store;
}

// False for what a key can't be: see IniFile::setValue.
bool isOrdinary(const QString& name) {
    const QString signs = QStringLiteral("=[];#");
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [&](QChar c) {
        return c > QLatin1Char(' ') && !signs.contains(c) && c != QChar(QChar::ByteOrderMark);
    });
}

struct Setting {
    QString section, key, value;

    // The content of a file with the setting; nothing if that is refused.
    std::optional<QByteArray> in(const QByteArray& content) const {
        std::optional<QByteArray> changed;
        ignoring([&] {
            const QByteArray line = SettingLine::of(value);
            changed = IniFile::withValue(content, section.toUtf8(), key.toUtf8(), line);
        });
        return changed;
    }
};

void checkSave(const Setting& setting, const QByteArray& content) {
    const std::optional<QByteArray> changed = setting.in(content);
    if (!changed) {
        require(!isOrdinary(setting.section) || !isOrdinary(setting.key), "an ordinary key takes any value");
        return;
    }
    const auto stored = IniFile::valueIn(*changed, setting.section.toUtf8(), setting.key.toUtf8());
    require(stored && SettingLine::textOf(*stored) == setting.value, "a stored value comes back");
    IniValues expected = iniValues(content.toStdString());
    IniValues found = iniValues(changed->toStdString());
    const auto place =
        std::pair(lowerCase(setting.section.toStdString()), lowerCase(setting.key.toStdString()));
    expected.erase(place);
    require(found.erase(place) == 1 && found == expected, "all other settings are kept");
}

void checkStore(const Setting& setting, const QByteArray& content) {
    static const bool isMade = std::filesystem::create_directory(folder().path() + "/Torvane");
    require(isMade, "there is a folder for the file");
    const std::string file = "Torvane/Torvane.conf";
    folder().write(file, content.toStdString());
    const bool isSaved =
        ignoring([&] { settings().SaveSetting(saver, setting.section, setting.key, setting.value); });
    require(isSaved == setting.in(content).has_value(), "the store takes the same values");
    require(folder().read(file) == setting.in(content).value_or(content).toStdString(), "it keeps the rest");
    const auto get = [&](const QString& name) {
        return settings().GetSetting(name, setting.section, setting.key, absent);
    };
    require(!isSaved || get(saver) == setting.value, "a saved setting comes back");
    require(get(QStringLiteral("Other")) == absent, "applications are kept apart");
}

// A handwritten line may hold anything; stored again it means the same.
void checkLine(const QByteArray& line) {
    const QString text = SettingLine::textOf(line);
    require(SettingLine::textOf(SettingLine::of(text)) == text, "what was read can be stored");
}

void checkNumber(const QString& text) {
    std::optional<double> expected = reference::numberIn(text.toStdString());
    if (expected) expected = reference::halfToEven(*expected);
    if (expected && (*expected < INT_MIN || *expected > INT_MAX)) expected.reset();
    std::optional<double> number;
    ignoring([&] { number = Settings::toNumber(text); });
    require(number == expected, "a number is read as such");
    std::optional<bool> flag;
    ignoring([&] { flag = Settings::toFlag(text); });
    std::optional<bool> expectedFlag;
    if (expected) expectedFlag = *expected != 0;
    const std::string word = lowerCase(text.toStdString());
    if (word == "true" || word == "false") expectedFlag = word == "true";
    require(flag == expectedFlag, "a flag is a word or a number");
}

// A name leads to a file of that name in a folder of that name, and nowhere else.
void checkFileOf(const QString& name) {
    const QString top = QString::fromStdString(folder().path() + '/');
    const QString file = settings().fileOf(name);
    require(file.startsWith(top), "settings lie in the folder for them");
    const QStringList pieces = file.sliced(top.size()).split(QLatin1Char('/'));
    require(pieces.size() == 2 && pieces[1] == pieces[0] + QStringLiteral(".conf"), "each in its own folder");
    require(!pieces[0].startsWith(QLatin1Char('.')) && !file.contains(QLatin1Char('\\')), "and nowhere else");
}
} // namespace

FUZZ_TARGET(settings) {
    Input input(data, size);
    const bool areNames = input.byte() % 2 != 0;
    const Setting setting{textOf(input, areNames), textOf(input, areNames), textOf(input, areNames)};
    const QByteArray content = input.rest();
    checkSave(setting, content);
    checkNumber(setting.value);
    checkFileOf(setting.value);
    checkLine(content.left(80));
    if (isOneIn32(data, size)) checkStore(setting, content);
    return 0;
}

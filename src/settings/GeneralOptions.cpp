// SPDX-License-Identifier: MIT
// Reading and storing the general options.
#include "GeneralOptions.h"
#include "core/Globals.h"
#include "core/SettingValues.h"
#include "platform/base/File.h"
#include "platform/base/IniFile.h"
#include "platform/base/RuntimeFailure.h"
#include "platform/base/SettingLine.h"

namespace torvane {

namespace {
// A store that can't be read must not count as an empty one here: its values would be overwritten.
QByteArray contentOf(const Settings& settings) {
    try {
        return File::contentOf(settings.fileOf(Config::application));
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != RuntimeFailure::fileNotFound) throw;
        return {};
    }
}

QString textIn(const QByteArray& content, const GeneralOption& option) {
    const auto line = IniFile::valueIn(content, Config::section.toUtf8(), option.key);
    return line ? SettingLine::textOf(*line) : QString();
}
} // namespace

int GeneralOptions::valueOf(const GeneralOption& option, const QString& stored) {
    int value = option.absent;
    const bool isNumber = ignoring([&] { value = Settings::toNumber(stored); });
    // Of the words the store takes two for flags.
    if (!isNumber && option.isFlag) ignoring([&] { value = Settings::toFlag(stored) ? 1 : 0; });
    return value >= 0 && value <= option.most ? value : option.absent;
}

int GeneralOptions::value(const GeneralOption& option) const {
    return valueOf(option, TextSetting(m_settings, option.key, {}).value());
}

void GeneralOptions::set(const GeneralOption& option, int value) const {
    NumberSetting(m_settings, option.key, option.absent).set(value);
}

void GeneralOptions::storeAll() const {
    QList<std::pair<QString, QString>> values;
    const QByteArray content = contentOf(m_settings);
    for (const GeneralOption& option : all) {
        const int value = valueOf(option, textIn(content, option));
        values.append({QString::fromLatin1(option.key), QString::number(value)});
    }
    m_settings.SaveSettings(Config::application, Config::section, values);
}

} // namespace torvane

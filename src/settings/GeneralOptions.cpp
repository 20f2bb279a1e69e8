// SPDX-License-Identifier: MIT
// Reading and storing the general options.
#include "GeneralOptions.h"
#include "core/Globals.h"
#include "core/SettingValues.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

namespace {
QString keyOf(const GeneralOption& option) { return QString::fromLatin1(option.key); }
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
    for (const GeneralOption& option : all) values.append({keyOf(option), QString::number(value(option))});
    m_settings.SaveSettings(Config::application, Config::section, values);
}

} // namespace torvane

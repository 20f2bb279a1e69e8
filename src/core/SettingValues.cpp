// SPDX-License-Identifier: MIT
// Conversions between the values of settings and their texts.
#include "SettingValues.h"
#include "Globals.h"
#include "platform/base/RuntimeFailure.h"

#include <limits>

namespace torvane {

namespace {
template <typename Value>
Value valueOf(const QString& text);

template <>
int valueOf(const QString& text) {
    return Settings::toNumber(text);
}

template <>
quint8 valueOf(const QString& text) {
    const int number = Settings::toNumber(text);
    if (number < 0 || number > std::numeric_limits<quint8>::max()) {
        throw RuntimeFailure(RuntimeFailure::overflow);
    }
    return static_cast<quint8>(number);
}

template <>
bool valueOf(const QString& text) {
    return Settings::toFlag(text);
}

template <>
QString valueOf(const QString& text) {
    return text;
}

QString textOf(int value) { return QString::number(value); }
QString textOf(const QString& value) { return value; }
} // namespace

template <typename Value>
Value SettingValue<Value>::value() const {
    return valueOf<Value>(
        m_settings.GetSetting(Config::application, Config::section, m_key, textOf(m_absent)));
}

template <typename Value>
void SettingValue<Value>::set(const Value& value) const {
    m_settings.SaveSetting(Config::application, Config::section, m_key, textOf(value));
}

template class SettingValue<int>;
template class SettingValue<quint8>;
template class SettingValue<bool>;
template class SettingValue<QString>;

} // namespace torvane

// SPDX-License-Identifier: MIT
// Typed handles for the program's settings: where a value is kept, what it is when absent, and how its text
// is converted. Each read asks the store, each write reaches it at once.
#pragma once

#include "platform/base/Settings.h"

namespace torvane {

/// One setting of the application's own section, such as `const NumberSetting intro{settings, "Intro", 1};`.
/// The store must outlive it. Use one of the four names below.
template <typename Value>
class SettingValue {
public:
    SettingValue(Settings& settings, const char* key, Value absent)
        : m_settings(settings), m_key(QString::fromLatin1(key)), m_absent(std::move(absent)) {}

    /// The stored value, or `absent` if there is none. Fails with a type mismatch if the stored text is none
    /// of the type, and with an overflow if it is a number that the type can't hold.
    Value value() const;
    /// Stores the value at once; fails if it can't be kept.
    void set(const Value& value) const;

private:
    Settings& m_settings;
    QString m_key;
    Value m_absent;
};

/// A number of 32 bits, rounded to nearest with half to even. "True" is none.
using NumberSetting = SettingValue<int>;
/// A number from 0 to 255, rounded in the same way.
using ByteSetting = SettingValue<quint8>;
/// Yes or no: read from "True", "False" or a number, of which 0 alone is false; stored as 1 or 0.
using FlagSetting = SettingValue<bool>;
/// Any text, unchanged.
using TextSetting = SettingValue<QString>;

extern template class SettingValue<int>;
extern template class SettingValue<quint8>;
extern template class SettingValue<bool>;
extern template class SettingValue<QString>;

} // namespace torvane

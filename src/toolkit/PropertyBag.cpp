// SPDX-License-Identifier: MIT
// Saved values of a control. Controls have about twenty, so a search from the start is enough.
#include "PropertyBag.h"

#include <algorithm>

namespace torvane {

void PropertyBag::WriteProperty(const QString& name, const QVariant& value) {
    const auto hasName = [&name](const auto& entry) { return entry.first == name; };
    const auto found = std::find_if(m_values.begin(), m_values.end(), hasName);
    if (found != m_values.end()) {
        found->second = value;
    } else {
        m_values.emplace_back(name, value);
    }
}

void PropertyBag::WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue) {
    if (value != defaultValue) WriteProperty(name, value);
}

QStringList PropertyBag::names() const {
    QStringList names;
    for (const auto& [name, value] : m_values) names << name;
    return names;
}

const QVariant* PropertyBag::find(const QString& name) const {
    const auto hasName = [&name](const auto& entry) { return entry.first == name; };
    const auto found = std::find_if(m_values.begin(), m_values.end(), hasName);
    return found == m_values.end() ? nullptr : &found->second;
}

} // namespace torvane

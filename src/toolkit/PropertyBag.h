// SPDX-License-Identifier: MIT
// The saved values of one control: names and values in the order in which they were written. The controls
// know their own names and defaults.
#pragma once

#include <QStringList>
#include <QVariant>
#include <utility>
#include <vector>

namespace torvane {

class PropertyBag {
public:
    /// Stores a value under the name, at the end, or replacing an older one of that name.
    void WriteProperty(const QString& name, const QVariant& value);
    /// The same, but a value equal to the default is left out.
    void WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue);
    /// The value of a name, or the default if the bag has none.
    template <typename Value>
    Value ReadProperty(const QString& name, const Value& defaultValue) const {
        const QVariant* value = find(name);
        return value != nullptr && value->canConvert<Value>() ? value->value<Value>() : defaultValue;
    }
    bool contains(const QString& name) const { return find(name) != nullptr; }
    /// All names in the order of writing.
    QStringList names() const;

private:
    const QVariant* find(const QString& name) const;

    std::vector<std::pair<QString, QVariant>> m_values;
};

} // namespace torvane

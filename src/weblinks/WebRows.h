// SPDX-License-Identifier: MIT
// The rows of the web lists that the user sees: name, icon and key of each.
#pragma once

#include "WebEntries.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/RowSource.h"

#include <algorithm>
#include <memory>

namespace torvane {

class WebRows : public RowSource {
public:
    explicit WebRows(std::shared_ptr<const WebEntries> entries) : m_entries(std::move(entries)) {}

    int count() const override { return m_entries->rowCount(); }
    /// At most the first 1000 characters of the name.
    QString text(int row, int) const override {
        constexpr qsizetype longest = 1000; // no row is that wide, and a line may be as long as the file
        const QByteArrayView name = m_entries->name(row);
        return CodePage1252::fromBytes(name.first(std::min(name.size(), longest)));
    }
    int icon(int row) const override { return m_entries->icon(row); }
    /// "wolas" and the number of the line, counted from 0 over both files.
    QString key(int row) const override {
        return QStringLiteral("wolas") + QString::number(m_entries->lineNumber(row));
    }

private:
    std::shared_ptr<const WebEntries> m_entries;
};

} // namespace torvane

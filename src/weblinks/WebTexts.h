// SPDX-License-Identifier: MIT
// The texts of the entries, as rows of the hidden list.
#pragma once

#include "WebEntries.h"
#include "platform/base/RowSource.h"

#include <memory>

namespace torvane {

class WebTexts : public RowSource {
public:
    explicit WebTexts(std::shared_ptr<const WebEntries> entries) : m_entries(std::move(entries)) {}

    int count() const override { return m_entries->entryCount(); }
    QString text(int row, int) const override { return m_entries->entryText(row); }
    int icon(int) const override { return 0; }

private:
    std::shared_ptr<const WebEntries> m_entries;
};

} // namespace torvane

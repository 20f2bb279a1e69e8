// SPDX-License-Identifier: MIT
// Entries of lists in little memory: one after the other, as bytes.
#pragma once

#include "ListEntry.h"

#include <string>

namespace torvane {

class EntryPack {
public:
    void add(const ListEntry& entry);
    void each(const ListGame::Take& take) const;
    /// In bytes.
    size_t size() const { return m_bytes.size(); }
    void clear() { m_bytes = std::string(); }

private:
    QByteArray text(size_t& at) const;

    std::string m_bytes;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The lists of known games that a command was given, and what of all their entries decides how games are
// read.
#pragma once

#include "GameList.h"
#include "ListIndex.h"
#include "tags/session/Session.h"

namespace torvane {

class GameLists {
public:
    /// `mostEntries`: of all lists together.
    explicit GameLists(Session& session, size_t mostEntries = ListIndex::mostEntries)
        : m_session(session), m_mostEntries(mostEntries) {}

    /// Reads the list at a path, and reports what is wrong with it. A list that is broken, or with which
    /// there are too many entries, is left out as a whole: what it lacks would be missing for certain. Fails
    /// if it can't be read.
    void add(const QByteArray& path);
    /// To be called after the last list.
    void close() { m_index.close(); }

    bool isEmpty() const { return m_lists.empty(); }
    const ListIndex& index() const { return m_index; }
    /// How many entries there are.
    size_t count() const { return m_index.count(); }
    /// Hands over all entries in their order, with their numbers in all lists, which stay the same. A list
    /// that can't be read again, or that has changed, is reported.
    void eachEntry(const std::function<void(const ListEntry&, size_t)>& take) const;

private:
    struct NamedList {
        QByteArray name;
        GameList list;
        size_t count = 0; // of its entries
    };
    bool isFullWith(const ListIndex& more) const { return m_index.count() + more.count() > m_mostEntries; }

    Session& m_session;
    size_t m_mostEntries;
    std::vector<NamedList> m_lists;
    ListIndex m_index;
};

} // namespace torvane

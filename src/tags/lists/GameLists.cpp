// SPDX-License-Identifier: MIT
// Reading lists, and reporting their flaws.
#include "GameLists.h"

namespace torvane {

namespace {
constexpr int mostFlaws = 10; // of a list that are reported one by one
}

void GameLists::add(const QByteArray& path) {
    NamedList list{path, GameList(path)};
    Reports& reports = m_session.reports();
    ListIndex index;
    int flaws = 0;
    const auto flaw = [&](qint64 line, const QByteArray& reason) {
        if (++flaws <= mostFlaws) reports.fault(path + ": line " + QByteArray::number(line), reason);
    };
    const QByteArray fault = list.list.read({[&](const ListEntry& entry) { index.add(entry); }, flaw,
                                             [&] { return m_session.isOver() || isFullWith(index); }});
    if (flaws > mostFlaws) reports.fault(path, "there are more such entries");
    if (isFullWith(index)) return reports.fault(path, "there are too many entries");
    if (!fault.isEmpty()) return reports.fault(path, fault);
    list.count = index.count();
    m_index.add(std::move(index));
    m_lists.push_back(std::move(list));
}

void GameLists::eachEntry(const std::function<void(const ListEntry&, size_t)>& take) const {
    size_t end = 0;
    for (const NamedList& list : m_lists) {
        size_t number = end;
        end += list.count;
        const auto takeOne = [&](const ListEntry& entry) {
            if (number < end) take(entry, number++); // it may have got more of them
        };
        m_session.attempt(list.name, [&] { list.list.each(takeOne); });
    }
}

} // namespace torvane

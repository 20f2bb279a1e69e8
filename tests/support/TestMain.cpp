// SPDX-License-Identifier: MIT
// The main function of all test programs: runs the test class named by the first argument.
#include "TestMain.h"

#include <algorithm>
#include <cstdio>

namespace torvane {

QByteArrayView TestEntry::name() const {
    const QByteArrayView full(m_class.className());
    return full.sliced(full.lastIndexOf(':') + 1);
}

const TestEntry* TestEntry::find(QByteArrayView name) {
    const TestEntry* entry = s_first;
    while (entry != nullptr && entry->name() != name) entry = entry->m_next;
    return entry;
}

QByteArrayList TestEntry::names() {
    QByteArrayList names;
    for (const TestEntry* entry = s_first; entry != nullptr; entry = entry->m_next) {
        names.append(entry->name().toByteArray());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace torvane

int main(int argc, char** argv) {
    using torvane::TestEntry;
    if (const TestEntry* entry = argc > 1 ? TestEntry::find(argv[1]) : nullptr) {
        argv[1] = argv[0];
        return entry->run(argc - 1, argv + 1);
    }
    std::fprintf(stderr, "Usage: %s CLASS [OPTIONS OF QT TEST]\nClasses:\n%s\n", argv[0],
                 TestEntry::names().join('\n').constData());
    return 2;
}

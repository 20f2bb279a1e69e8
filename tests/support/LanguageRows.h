// SPDX-License-Identifier: MIT
// Data rows for tests of each language that comes along.
#pragma once

#include <QByteArray>
#include <QtTest>

namespace torvane {

/// A row for each language file of the tree, with its code, such as "esp", in the column "language".
inline void languageRows() {
    QTest::addColumn<QByteArray>("language");
    for (const char* language : {"esp", "cat", "eng"}) QTest::newRow(language) << QByteArray(language);
}

} // namespace torvane

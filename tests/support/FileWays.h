// SPDX-License-Identifier: MIT
// All ways to change a file, for tests of the rules that hold for each of them.
#pragma once

#include "FileFixture.h"
#include "platform/base/SafeFile.h"

namespace torvane {

enum class Way { replace, copy, change, append, end };

class FileWays : public FileFixture {
protected:
    /// One row per way; with `replacingAlone` only for the ways that replace the old file by a new one.
    static void wayRows(bool replacingAlone = false) {
        QTest::addColumn<Way>("way");
        QTest::newRow("replace") << Way::replace;
        QTest::newRow("copy") << Way::copy;
        QTest::newRow("change") << Way::change;
        if (!replacingAlone) QTest::newRow("append") << Way::append;
        if (!replacingAlone) QTest::newRow("end") << Way::end;
    }
    /// Changes a file in one of the ways. A copy is made of the file "source".
    void changeBy(Way way, const char* name, const QByteArray& bytes = "new") const {
        changeAt(at(name), way, bytes);
    }
    void changeAt(const QString& path, Way way, const QByteArray& bytes = "new") const {
        switch (way) {
        case Way::replace: return SafeFile::replace(path, bytes);
        case Way::copy: return SafeFile::copy(at("source"), path);
        case Way::change: return SafeFile::Change(path).commit({bytes});
        case Way::append: SafeFile::append(path, [&](qint64) { return bytes; }); return;
        case Way::end: return SafeFile::Change(path, SafeFile::Change::Part::end).commitEnd(3, {bytes});
        }
    }
    std::optional<int> failureBy(Way way, const char* name) const {
        return failureOf([&] { changeBy(way, name); });
    }
    /// The content after the change of a file that held "former".
    static QByteArray changed(Way way) {
        return way == Way::append ? "formernew" : way == Way::end ? "fornew" : "new";
    }
};

} // namespace torvane
Q_DECLARE_METATYPE(torvane::Way)

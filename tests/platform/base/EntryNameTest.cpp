// SPDX-License-Identifier: MIT
// Names of archive entries: harmless ones stay as they are, others are sanitized or rejected.
#include "platform/base/EntryName.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

class EntryNameTest : public QObject {
    Q_OBJECT

    static void addRows(const QList<QByteArray>& names) {
        QTest::addColumn<QByteArray>("name");
        for (const QByteArray& name : names) QTest::newRow(name.left(40).toPercentEncoding()) << name;
    }

private slots:
    void an_ordinary_name_stays_data() {
        addRows({"game.gb",
                 "A Game (Europe).gba",
                 "a",
                 "two.dots.gb",
                 "ab:c",
                 "-rf",
                 "$(x)",
                 "*?.gb",
                 "%s",
                 " a",
                 "console.gb",
                 "COM10",
                 "COM0.gb",
                 "COM",
                 "LPT",
                 "nul-.gb",
                 "gb.nul",
                 "Pok\xC3\xA9mon.gb",
                 "\xE6\x97\xA5\xE6\x9C\xAC.gb",
                 "\xF0\x9F\x8E\xAE",
                 "\xFF\xFE.gb",
                 "caf\xE9",
                 "\xED\xA0\x80",
                 QByteArray(255, 'a')});
    }
    void an_ordinary_name_stays() {
        QFETCH(QByteArray, name);
        QCOMPARE(EntryName::sanitized(name), name);
    }

    void a_harmful_name_is_rejected_data() {
        addRows({"",
                 ".",
                 "..",
                 "...",
                 " ",
                 ". .",
                 "./",
                 "./.",
                 "./..",
                 "../a",
                 "a/..",
                 "a/b",
                 "/a",
                 "//a",
                 "a/",
                 "/",
                 "./a/b",
                 "\\a",
                 "a\\b",
                 "..\\a",
                 "a\\",
                 "C:",
                 "C:a",
                 "z:\\a",
                 "c:.",
                 ".a",
                 "./.a",
                 ".torvane-abc123",
                 ".torvane-append-abc123",
                 "con",
                 "PRN.gb",
                 "Aux.",
                 "nul .gb",
                 "com1",
                 "LPT9.a.b",
                 "a\nb",
                 "\ta",
                 "a\x7F",
                 QByteArray("a\0b", 3),
                 QByteArray("\0", 1),
                 "a\x1B[2J",
                 "a\xC2\x85",
                 "a\xE2\x80\xA8",
                 "a\xE2\x80\xA9",
                 "a\xE2\x80\xAE.exe",
                 "a\xE2\x80\x8F",
                 "a\xE2\x81\xA6",
                 "\xD8\x9C",
                 QByteArray(256, 'a'),
                 QByteArray(4096, 'a')});
    }
    void a_harmful_name_is_rejected() {
        QFETCH(QByteArray, name);
        QCOMPARE(EntryName::sanitized(name), QByteArray());
    }

    void meaningless_ends_are_cut_off_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("sanitized");
        const QByteArray longest(255, 'a');
        QTest::newRow("a dot") << QByteArray("a.gb.") << QByteArray("a.gb");
        QTest::newRow("dots and blanks") << QByteArray("a.gb . ..") << QByteArray("a.gb");
        QTest::newRow("the folder itself") << QByteArray("./a.gb") << QByteArray("a.gb");
        QTest::newRow("the folder itself again") << QByteArray("././a.gb") << QByteArray("a.gb");
        QTest::newRow("a long tail") << longest + QByteArray(4096, ' ') << longest;
    }
    void meaningless_ends_are_cut_off() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, sanitized);
        QCOMPARE(EntryName::sanitized(name), sanitized);
        QCOMPARE(EntryName::sanitized(sanitized), sanitized);
    }

    void a_name_with_any_byte_round_trips_through_its_path() {
        int kept = 0;
        for (int byte = 0; byte < 256; ++byte) {
            const QByteArray name = EntryName::sanitized(QByteArray("a") + static_cast<char>(byte) + 'z');
            if (name.isEmpty()) continue;
            ++kept;
            const QString text = NativeText::fromNative(name);
            QCOMPARE(NativeText::toNative(text), name);
            QCOMPARE(Paths::real(QStringLiteral("\\nowhere\\") + text), "/nowhere/" + name);
        }
        // All but the control characters, the two separators and the colon, which makes the letter a drive.
        QCOMPARE(kept, 256 - 33 - 2 - 1);
    }
};

TORVANE_APPLESS_TEST(EntryNameTest)
#include "EntryNameTest.moc"

// SPDX-License-Identifier: MIT
// The console for a size: every limit from both sides.
#include "catalogue/GameFormat.h"
#include "support/TestMain.h"

#include <QtTest>
#include <limits>

using namespace torvane;

class GameFormatTest : public QObject {
    Q_OBJECT

private slots:
    void a_size_gives_the_console_data() {
        QTest::addColumn<int>("sizeKB");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("extension");
        const auto row = [](int sizeKB, const char* text, const char* extension) {
            QTest::addRow("%d", sizeKB)
                << sizeKB << QString::fromLatin1(text) << QString::fromLatin1(extension);
        };
        row(std::numeric_limits<int>::min(), "", "");
        row(-1025, "", "");
        row(0, "", "");
        row(1024, "", "");
        row(1025, "GameBoy", ".gb");
        row(2047, "GameBoy", ".gb");
        row(2048, "", "");
        row(2049, "GameBoy Color", ".gbc");
        row(4095, "GameBoy Color", ".gbc");
        row(4096, "", "");
        row(4097, "GameBoy Advance", ".gba");
        row(std::numeric_limits<int>::max(), "GameBoy Advance", ".gba");
    }
    void a_size_gives_the_console() {
        QFETCH(int, sizeKB);
        QFETCH(QString, text);
        QFETCH(QString, extension);
        const GameFormat format = formatOfSize(sizeKB);
        QCOMPARE(format.text, text);
        QCOMPARE(format.extension, extension);
        QCOMPARE(format.isKnown(), !text.isEmpty());
    }
    void zip_in_lower_case_is_an_archive() {
        const GameFormat format = formatOfExtension(QStringLiteral("zip"));
        QVERIFY(format.isKnown());
        QCOMPARE(format.text, QStringLiteral("Formato .ZIP"));
        QCOMPARE(format.extension, QStringLiteral(".zip"));
    }
    void any_other_extension_is_unknown_data() {
        QTest::addColumn<QString>("extension");
        for (const char* extension :
             {"", "ZIP", "Zip", ".zip", "zip ", " zip", "zipx", "gb", "gba", "gbc", "zip/plain"})
            QTest::newRow(extension) << QString::fromLatin1(extension);
    }
    void any_other_extension_is_unknown() {
        QFETCH(QString, extension);
        QVERIFY(!formatOfExtension(extension).isKnown());
        QVERIFY(formatOfExtension(extension).extension.isEmpty());
    }
};

TORVANE_APPLESS_TEST(GameFormatTest)
#include "GameFormatTest.moc"

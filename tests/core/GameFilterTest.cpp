// SPDX-License-Identifier: MIT
// The filter of the game dialogs, and which of its pairs a file name selects.
#include "core/GameFilter.h"
#include "core/Pieces.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace torvane;

class GameFilterTest : public QObject {
    Q_OBJECT

private slots:
    void the_filter_has_exactly_these_five_pairs_of_texts() {
        QCOMPARE(gameFileFilter,
                 QStringLiteral("Todos los formatos|*.gb;*.gba;*.gbc;*.cgb;*.agb;*.bin;*.zip|GameBoy "
                                "Advance|*.gba;*.agb;*.bin|"
                                "GameBoy Color|*.gbc;*.cgb|GameBoy Classic|*.gb|ROMs en ZIP|*.zip"));
        QCOMPARE(gameFileFilter.split(QLatin1Char('|')).size(), 10);
    }
    void the_index_is_that_of_the_pair_that_lists_the_kind_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"zip", "gb", "gba", "gbc", "bin", "agb", "cgb"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void the_index_is_that_of_the_pair_that_lists_the_kind() {
        QFETCH(QString, kind);
        const QStringList parts = gameFileFilter.split(QLatin1Char('|'));
        const int index = gameFilterIndex(QStringLiteral("game.") + kind, {});
        // The first pair lists all kinds and must not be selected.
        QVERIFY(index > 1);
        QVERIFY(parts[2 * index - 1].split(QLatin1Char(';')).contains(QStringLiteral("*.") + kind));
    }
    void other_names_have_index_1_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"", "game", "game.", ".", "..gb", "game.txt", "GAME.GB", "game.Zip",
                                 "game.rev.zip", "game.gb ", "game. gb", "game.gbx", "zip", "game.\n.gb"}) {
            QTest::newRow(name) << QString::fromLatin1(name);
        }
    }
    void other_names_have_index_1() {
        QFETCH(QString, name);
        QCOMPARE(gameFilterIndex(name, {}), 1);
    }
    void the_second_piece_decides_and_not_the_last() {
        QCOMPARE(gameFilterIndex(QStringLiteral("game.gb.zip"), {}), 4);
        QCOMPARE(gameFilterIndex(QStringLiteral(".gb"), {}), 4);
        QCOMPARE(gameFilterIndex(QStringLiteral("a b.zip.bak"), {}), 5);
    }
    void the_end_of_a_whole_name_decides() {
        const NameCut whole = NameCut::chosen(QStringLiteral("whole"));
        QCOMPARE(gameFilterIndex(QStringLiteral("Dr. Mario (V1.1).gba"), whole), 2);
        QCOMPARE(gameFilterIndex(QStringLiteral("game.gb.txt"), whole), 1);
        QCOMPARE(gameFilterIndex(QStringLiteral("game.gb."), whole), 1);
    }
    void pieces_are_cut_at_every_dot_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        const auto row = [](const char* name, const char* first, const char* second) {
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(first)
                                << QString::fromUtf8(second);
        };
        row("", "", "");
        row("game", "game", "");
        row("game.gb", "game", "gb");
        row("a.b.gb", "a", "b");
        row("a..gb", "a", "");
        row(".gb", "", "gb");
        row("game.", "game", "");
        row("...", "", "");
        row("Señor %s.gb", "Señor %s", "gb");
        row("a\nb.g\nb", "a\nb", "g\nb");
        row("/games.d/a.gb", "/games", "d/a");
    }
    void pieces_are_cut_at_every_dot() {
        QFETCH(QString, name);
        QFETCH(QString, first);
        QFETCH(QString, second);
        QCOMPARE(NameCut().firstPiece(name), first);
        QCOMPARE(NameCut().secondPiece(name), second);
    }
};

TORVANE_APPLESS_TEST(GameFilterTest)
#include "GameFilterTest.moc"

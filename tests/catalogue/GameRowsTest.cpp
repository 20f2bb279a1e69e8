// SPDX-License-Identifier: MIT
// The rows of the game list: names, icons, and how the rows of two lists are paired.
#include "catalogue/GameRows.h"
#include "platform/base/File.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
// The patterns of the list that counts the games and of the list that names them.
const QString countedPattern = QStringLiteral("*.gb;*.gbc;*.gba;*.zip");
const QString namedPattern = QStringLiteral("*.gb;*.gba;*.gbc;*.cgb;*.agb;*.zip");

constexpr int none = 0;
constexpr int advance = 1;
constexpr int classic = 2;
constexpr int colour = 3;
constexpr int archive = 4;
} // namespace

class GameRowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    void make(const QByteArrayList& names) const {
        for (const QByteArray& name : names) folder->writeNative(name, "x");
    }
    GameRows rows(const QString& pattern = QString(), const NameCut& cut = {}) const {
        const auto names = FolderNames::read(folder->path(), pattern);
        return GameRows(
            names, names->count(),
            [this](const QString& name) { return File::lengthOf(folder->path() + QLatin1Char('\\') + name); },
            cut);
    }
    static QList<int> icons(const GameRows& rows) {
        QList<int> all;
        for (int i = 0; i < rows.count(); ++i) all.append(rows.icon(i));
        return all;
    }
    void makeSized(const char* name, qint64 size) const {
        make({name});
        QVERIFY(QFile::resize(folder->path(QString::fromLatin1(name)), size));
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void an_empty_or_missing_library_has_no_rows_and_total_0000() {
        QCOMPARE(rows().count(), 0);
        const auto missing = FolderNames::read(folder->path(QStringLiteral("gone")), namedPattern);
        QCOMPARE(GameRows(missing, missing->count(), {}, {}).count(), 0);
        QCOMPARE(totalText(missing->count()), QStringLiteral("0000"));
    }
    void whole_names_are_cut_at_their_last_dot() {
        const NameCut whole = NameCut::chosen(QStringLiteral("whole"));
        make({"Dr. Mario (V1.1).gb", "a.gb.old", "b.", "c.v2.gba", "d"});
        const GameRows list = rows(QString(), whole);
        QStringList texts;
        for (int row = 0; row < list.count(); ++row) texts += list.text(row, 0);
        QCOMPARE(texts.join(QLatin1Char('|')), QStringLiteral("a.gb|b|c.v2|d|Dr. Mario (V1.1)"));
        QCOMPARE(icons(list), (QList<int>{none, none, advance, advance, classic}));
    }
    void whole_names_are_found_by_a_beginning_with_dots() {
        const NameCut whole = NameCut::chosen(QStringLiteral("whole"));
        make({"a.b.c.gb", "a.b.gb", "a.gb"});
        const GameRows list = rows(QString(), whole);
        QCOMPARE(list.firstWith(QStringLiteral("A.B")), 0);
        QCOMPARE(list.firstWith(QStringLiteral("a.b.")), 0);
        QCOMPARE(list.firstWith(QStringLiteral("a.b.c.")), -1);
        QCOMPARE(list.firstWith(QStringLiteral("a.g")), -1);
        QCOMPARE(rows().firstWith(QStringLiteral("a.b")), -1);
    }
    void a_kind_has_its_icon_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("icon");
        const auto row = [](const char* name, int icon) { QTest::newRow(name) << QByteArray(name) << icon; };
        row("a.zip", archive);
        row("a.gb", classic);
        row("a.gbc", colour);
        row("a.cgb", colour);
        row("a.gba", advance);
        row("a.agb", advance);
        row("a.GB", none);
        row("a.Zip", none);
        row("a.txt", none);
        row("a.", none);
        row("a", none);
        row("a.gb.zip", classic);
        row("a.b.gb", none);
        row("a..gb", none);
        row("a.gb ", none);
        row("a.gb\n", none);
        row("a.zi", none);
        row("a.zipp", none);
    }
    void a_kind_has_its_icon() {
        QFETCH(QByteArray, name);
        QFETCH(int, icon);
        make({name});
        QCOMPARE(icons(rows()), QList<int>{icon});
    }
    void a_name_with_two_dots_shows_its_first_piece_and_repeats_the_icon_above() {
        make({"0.zip", "a.b.gb"});
        const GameRows list = rows(namedPattern);
        QCOMPARE(list.text(1, 0), QStringLiteral("a"));
        QCOMPARE(icons(list), (QList<int>{archive, archive}));
    }
    void a_name_in_upper_case_is_listed_and_repeats_the_icon_above() {
        make({"A.gba", "GAME.GB", "Z.gbc"});
        QCOMPARE(icons(rows(namedPattern)), (QList<int>{advance, advance, colour}));
    }
    void an_icon_is_repeated_over_many_rows_but_the_first_row_has_none_above() {
        make({"1.GB", "2.x.gb", "3.gb", "4.GBA", "5.y.gba", "6.zip", "7.ZIP"});
        QCOMPARE(icons(rows(namedPattern)),
                 (QList<int>{none, none, classic, classic, classic, archive, archive}));
    }
    void rows_are_counted_by_one_pattern_and_named_by_the_other() {
        make({"a.agb", "b.cgb", "c.gb", "d.gba", "e.zip"});
        const auto counted = FolderNames::read(folder->path(), countedPattern);
        const auto named = FolderNames::read(folder->path(), namedPattern);
        QCOMPARE(counted->count(), 3);
        QCOMPARE(named->count(), 5);
        const GameRows list(named, counted->count(), [](const QString&) { return qint64(0); }, {});
        QCOMPARE(list.count(), 3);
        QCOMPARE(list.text(0, 0), QStringLiteral("a"));
        QCOMPARE(list.text(1, 0), QStringLiteral("b"));
        QCOMPARE(list.text(2, 0), QStringLiteral("c"));
        QCOMPARE(icons(list), (QList<int>{advance, colour, classic}));
        // Row 0 shows "a", but entry 0 of the counted list is c.gb.
        QCOMPARE(counted->name(0), QStringLiteral("c.gb"));
        QCOMPARE(totalText(named->count()), QStringLiteral("0005"));
    }
    void a_count_beyond_the_names_gives_no_more_rows_than_names() {
        make({"a.gb", "b.gb"});
        const auto names = FolderNames::read(folder->path(), namedPattern);
        QCOMPARE(GameRows(names, 7, {}, {}).count(), 2);
        QCOMPARE(GameRows(names, 0, {}, {}).count(), 0);
    }

    void a_row_text_is_the_first_piece_cut_to_30_characters_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* label, const QByteArray& name, const QString& text) {
            QTest::newRow(label) << name << text;
        };
        const QString n30(30, QLatin1Char('n'));
        row("29", QByteArray(29, 'n') + ".gb", n30.left(29));
        row("30", QByteArray(30, 'n') + ".gb", n30);
        row("31", QByteArray(31, 'n') + ".gb", n30);
        row("longest name", QByteArray(252, 'n') + ".gb", n30);
        row("characters and not bytes", QByteArray("ñ").repeated(31) + ".gb", QString(30, QChar(0xF1)));
        row("30 with a pair at the end", QByteArray(28, 'n') + "😀.gb", n30.left(28) + QStringLiteral("😀"));
        row("a pair across the cut", QByteArray(29, 'n') + "😀😀.gb", n30.left(29));
        row("a pair after the cut", QByteArray(30, 'n') + "😀.gb", n30);
        row("blanks", " a  b .gb", QStringLiteral(" a  b "));
        row("blanks count", QByteArray(40, ' ') + ".gb", QString(30, QLatin1Char(' ')));
        row("markup and format characters", "%s <b>&\"'\\.gb", QStringLiteral("%s <b>&\"'") + QChar(0xDC5C));
        row("line break", "a\nb.gb", QStringLiteral("a\nb"));
        row("no UTF-8", "a\xF1.gb", QStringLiteral("a") + QChar(0xDCF1));
        row("no dot", "plain", QStringLiteral("plain"));
    }
    void a_row_text_is_the_first_piece_cut_to_30_characters() {
        QFETCH(QByteArray, name);
        QFETCH(QString, text);
        make({name});
        QCOMPARE(rows().text(0, 0), text);
    }
    void a_cut_row_text_leaves_the_file_name_complete() {
        const QByteArray name = QByteArray(60, 'n') + ".gb";
        make({name});
        const auto names = FolderNames::read(folder->path(), namedPattern);
        const GameRows list(names, 1, {}, {});
        QCOMPARE(list.text(0, 0).size(), 30);
        QCOMPARE(names->bytes(0).toByteArray(), name);
    }

    void the_size_of_a_bin_file_gives_its_icon_data() {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<int>("icon");
        const auto row = [](qint64 bytes, int icon) {
            QTest::addRow("%lld", static_cast<long long>(bytes)) << bytes << icon;
        };
        row(0, none);
        row(1000000, none);
        row(1023999, none);
        row(1024000, advance);
        row(1024001, classic);
        row(1048576, classic);
        row(2047999, classic);
        row(2048000, none);
        row(2048001, colour);
        row(8388608, colour);
        row(qint64(1) << 40, colour);
    }
    void the_size_of_a_bin_file_gives_its_icon() {
        QFETCH(qint64, bytes);
        QFETCH(int, icon);
        QCOMPARE(static_cast<int>(GameRows::iconOfSize(bytes)), icon);
    }
    void a_bin_file_has_the_icon_of_its_real_size_or_repeats_the_one_above() {
        makeSized("0.zip", 1);
        makeSized("1.bin.gb", 1023999);
        makeSized("2.bin.gb", 1024000);
        makeSized("3.bin.gb", 2048000);
        makeSized("4.bin.gb", 2047999);
        makeSized("5.bin.gb", 2048001);
        makeSized("6.BIN.gb", 1024000);
        QCOMPARE(icons(rows(namedPattern)),
                 (QList<int>{archive, archive, advance, advance, classic, colour, colour}));
    }
    void a_bin_file_that_cannot_be_opened_repeats_the_icon_above() {
        makeSized("0.zip", 1);
        makeSized("1.bin.gb", 1024000);
        makeSized("2.bin.gb", 1500000);
        folder->setMode(QStringLiteral("1.bin.gb"), 0);
        QList<int> seen;
        {
            const OrdinaryUser user;
            seen = icons(rows(namedPattern));
        }
        QCOMPARE(seen, (QList<int>{archive, archive, classic}));
    }
    void only_bin_files_are_opened_for_their_length() {
        make({"a.gb", "b.zip", "c.bin.gb", "d.BIN", "e.x.bin", "f.bin"});
        QStringList asked;
        const auto names = FolderNames::read(folder->path(), QString());
        const auto lengthOf = [&](const QString& name) {
            asked.append(name);
            return qint64(0);
        };
        const GameRows list(names, names->count(), lengthOf, {});
        icons(list);
        icons(list);
        QCOMPARE(asked, (QStringList{QStringLiteral("c.bin.gb"), QStringLiteral("f.bin")}));
    }
    void a_large_library_is_not_looked_through_before_its_rows_are_shown() {
        make({"a.bin", "b.bin", "c.bin"});
        int asked = 0;
        const auto names = FolderNames::read(folder->path(), QString());
        const auto lengthOf = [&](const QString&) {
            ++asked;
            return qint64(3000000);
        };
        const GameRows list(names, names->count(), lengthOf, {});
        QCOMPARE(list.count(), 3);
        QCOMPARE(asked, 0);
        QCOMPARE(list.icon(1), colour);
        QCOMPARE(asked, 2);
        QCOMPARE(list.icon(0), colour);
        QCOMPARE(asked, 2);
    }

    void the_total_has_four_digits_and_ends_at_9999_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("text");
        const auto row = [](int count, const char* text) {
            QTest::addRow("%d", count) << count << QString::fromLatin1(text);
        };
        row(0, "0000");
        row(1, "0001");
        row(9, "0009");
        row(10, "0010");
        row(99, "0099");
        row(100, "0100");
        row(999, "0999");
        row(1000, "1000");
        row(9999, "9999");
        row(10000, "+9999");
        row(100000, "+9999");
    }
    void the_total_has_four_digits_and_ends_at_9999() {
        QFETCH(int, count);
        QFETCH(QString, text);
        QCOMPARE(totalText(count), text);
    }
    void a_library_of_10000_games_has_10000_rows_and_shows_plus_9999() {
        for (int i = 0; i < 10000; ++i) folder->writeNative(QByteArray::number(i) + ".gb", "");
        const GameRows list = rows(namedPattern);
        QCOMPARE(list.count(), 10000);
        QCOMPARE(list.icon(9999), classic);
        QCOMPARE(totalText(list.count()), QStringLiteral("+9999"));
    }

    // Search
    void the_first_row_is_found_whose_text_begins_with_another() {
        make({"Super Tetris.gb", "Tetris 2.gb", "TETRIS.gba", "Zelda.v2.gb"});
        const GameRows list = rows();
        QCOMPARE(list.firstWith(QStringLiteral("tet")), 1);
        QCOMPARE(list.firstWith(QStringLiteral("tetris ")), 1);
        QCOMPARE(list.firstWith(QStringLiteral("s")), 0);
        QCOMPARE(list.firstWith(QStringLiteral("ZELDA")), 3);
        QCOMPARE(list.firstWith(QStringLiteral("etris")), -1);
    }
    void what_a_row_does_not_show_is_not_found() {
        make({"Zelda.v2.gb", QByteArray(30, 'n') + "more.gb"});
        const GameRows list = rows();
        QCOMPARE(list.firstWith(QStringLiteral("zelda.")), -1);
        QCOMPARE(list.firstWith(QStringLiteral("zelda.v2")), -1);
        QCOMPARE(list.firstWith(QString(30, QLatin1Char('n'))), 0);
        QCOMPARE(list.firstWith(QString(30, QLatin1Char('n')) + QLatin1Char('m')), -1);
        QCOMPARE(list.firstWith(QString(100'000, QLatin1Char('n'))), -1);
    }
    void only_rows_of_the_list_are_searched() {
        make({"a.gb", "b.cgb", "c.gb"});
        const auto names = FolderNames::read(folder->path(), namedPattern);
        QCOMPARE(GameRows(names, 2, {}, {}).firstWith(QStringLiteral("b")), 1);
        QCOMPARE(GameRows(names, 2, {}, {}).firstWith(QStringLiteral("c")), -1);
        QCOMPARE(GameRows(names, 0, {}, {}).firstWith(QStringLiteral("a")), -1);
    }
};

TORVANE_APPLESS_TEST(GameRowsTest)
#include "GameRowsTest.moc"

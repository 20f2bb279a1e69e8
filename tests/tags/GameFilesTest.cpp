// SPDX-License-Identifier: MIT
// Which games a command line names, in which order, and what is known of each.
#include "tags/session/GameFiles.h"
#include "MemoryFile.h"
#include "TagsProgram.h"
#include "support/Failing.h"
#include "support/TestMain.h"
#include "tags/session/GameRow.h"
#include "tags/session/Reports.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class GameFilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    QByteArray before;
    std::unique_ptr<MemoryFile> errors;
    std::unique_ptr<Reports> reports;
    std::unique_ptr<GameFiles> games;

    QByteArrayList names() const {
        QByteArrayList all;
        games->visit([&](const GameFile& game) { return all.append(game.name), true; });
        return all;
    }
    QByteArrayList paths() const {
        QByteArrayList all;
        games->visit([&](const GameFile& game) { return all.append(game.path), true; });
        return all;
    }
    Row row(const QByteArray& name, const QByteArray& content) const {
        folder->writeNative(name, content);
        return GameRow::of({name, folder->native(name)}, NameCut());
    }
    static QByteArray valueOf(const Row& row, const char* column) {
        const Columns columns = GameRow::columns();
        for (size_t i = 0; i < columns.size(); ++i) {
            if (qstrcmp(columns[i].name, column) != 0) continue;
            const Field& field = row[i];
            return field.kind == Field::Kind::missing ? "(missing)"
                   : field.kind == Field::Kind::yes   ? "yes"
                   : field.kind == Field::Kind::no    ? "no"
                                                      : field.bytes;
        }
        return "(no such column)";
    }

private slots:
    void init() {
        before = QFile::encodeName(QDir::currentPath());
        folder = std::make_unique<TestFolder>();
        QVERIFY(chdir(folder->native("").constData()) == 0);
        folder->makeFolder(u"library"_s);
        errors = std::make_unique<MemoryFile>();
        reports = std::make_unique<Reports>(errors->descriptor());
        games = std::make_unique<GameFiles>("library", *reports);
    }
    void cleanup() { QVERIFY(chdir(before.constData()) == 0); }

    void a_folder_stands_for_the_games_directly_in_it_in_the_order_of_the_list() {
        for (const char* name : {"b.GB", "A.gbc", "c.zip", "d.cgb", "e.agb", "f.gba", "g.bin", "C.gb",
                                 "h.txt", ".i.gb", "j.gb.bak", "sub/k.gb"}) {
            folder->write(u"games/"_s + QString::fromUtf8(name), "x");
        }
        folder->makeFolder(u"games/folder.gb"_s);
        games->add("games");
        QCOMPARE(names(), (QByteArrayList{"games/A.gbc", "games/b.GB", "games/C.gb", "games/c.zip",
                                          "games/d.cgb", "games/e.agb", "games/f.gba", "games/g.bin"}));
        QCOMPARE(paths(), names());
        QCOMPARE(games->count(), 8);
    }
    void the_games_of_the_library_are_named_without_their_folder() {
        folder->writeNative("library/a\xFF\\b.gb", "x");
        games->addLibrary();
        QCOMPARE(names(), QByteArrayList{"a\xFF\\b.gb"});
        QCOMPARE(paths(), QByteArrayList{"library/a\xFF\\b.gb"});
    }
    void a_file_is_taken_whatever_its_name_is() {
        folder->writeNative("\xFF.txt", "x");
        folder->writeNative("a\\b", "x");
        games->add("\xFF.txt");
        games->add("a\\b");
        games->add(folder->native("a\\b"));
        QCOMPARE(names(), (QByteArrayList{"\xFF.txt", "a\\b", folder->native("a\\b")}));
        QCOMPARE(errors->content(), QByteArray());
    }
    void a_name_that_is_not_here_is_looked_for_in_the_library() {
        folder->write(u"library/a.gb"_s, "x");
        folder->write(u"library/b.gb"_s, "x");
        folder->write(u"b.gb"_s, "x");
        folder->write(u"library/sub/c.gb"_s, "x");
        for (const char* name : {"a.gb", "b.gb", "sub"}) games->add(name);
        QCOMPARE(names(), (QByteArrayList{"a.gb", "b.gb", "sub/c.gb"}));
        QCOMPARE(paths(), (QByteArrayList{"library/a.gb", "b.gb", "library/sub/c.gb"}));
    }
    void a_name_in_another_case_is_another_name() {
        folder->write(u"library/a.gb"_s, "x");
        games->add("A.gb");
        QCOMPARE(games->count(), 0);
    }
    void what_is_not_there_is_reported_and_the_others_are_taken() {
        folder->write(u"a.gb"_s, "x");
        folder->write(u"library/b.gb"_s, "x");
        for (const char* name : {"no\n.gb", "a.gb", "/b.gb", "a.gb/"}) games->add(name);
        QCOMPARE(names(), QByteArrayList{"a.gb"});
        QCOMPARE(errors->content(), QByteArray("torvane-tags: no?.gb: it doesn’t exist\n"
                                               "torvane-tags: /b.gb: it doesn’t exist\n"
                                               "torvane-tags: a.gb/: its folder doesn’t exist\n"));
    }
    void a_folder_that_can_not_be_read_is_reported() {
        folder->makeFolder(u"closed"_s);
        folder->setMode(u"closed"_s, 0);
        const OrdinaryUser ordinary;
        games->add("closed");
        QCOMPARE(errors->content(),
                 QByteArray("torvane-tags: closed: you don’t have permission to do that\n"));
    }
    void slashes_after_a_folder_are_one() {
        folder->write(u"games/a.gb"_s, "x");
        games->add("games//");
        QCOMPARE(names(), QByteArrayList{"games/a.gb"});
    }
    void a_visit_ends_when_it_is_asked_to() {
        for (const char* name : {"library/a.gb", "library/b.gb"}) folder->write(QString::fromUtf8(name), "x");
        games->addLibrary();
        games->add("a.gb");
        int seen = 0;
        games->visit([&](const GameFile&) { return ++seen < 2; });
        QCOMPARE(seen, 2);
    }

    // Rows
    void a_tagged_game_shows_its_tag_and_both_sizes() {
        const Row tagged = row("a.gb", taggedGame("T\xE9", "C", "I", "D", 5000));
        QCOMPARE(valueOf(tagged, "file"), QByteArray("a.gb"));
        QCOMPARE(valueOf(tagged, "console"), QByteArray("GB"));
        QCOMPARE(valueOf(tagged, "tagged"), QByteArray("yes"));
        QCOMPARE(valueOf(tagged, "title"), QByteArray("Té"));
        QCOMPARE(valueOf(tagged, "company"), QByteArray("C"));
        QCOMPARE(valueOf(tagged, "date"), QByteArray("D"));
        QCOMPARE(valueOf(tagged, "info"), QByteArray("I"));
        QCOMPARE(valueOf(tagged, "image"), QByteArray("5000"));
        QCOMPARE(valueOf(tagged, "size"), QByteArray("5023"));
    }
    void an_untagged_game_has_no_fields() {
        const Row untagged = row("a.gb", QByteArray(3000, 'x'));
        QCOMPARE(valueOf(untagged, "tagged"), QByteArray("no"));
        for (const char* field : {"title", "company", "date", "info"})
            QCOMPARE(valueOf(untagged, field), QByteArray("(missing)"));
        QCOMPARE(valueOf(untagged, "image"), QByteArray("3000"));
    }
    void a_tag_in_a_file_below_2048_bytes_is_not_seen() {
        const QByteArray game = taggedGame("T", "C", "I", "D", 3000);
        QCOMPARE(valueOf(row("a.gb", game.last(2048)), "tagged"), QByteArray("yes"));
        QCOMPARE(valueOf(row("a.gb", game.last(2047)), "tagged"), QByteArray("no"));
    }
    void the_image_is_cut_at_the_size_in_its_tag_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QByteArray>("image");
        QTest::newRow("smaller") << QByteArray("4000.5") << QByteArray("4000");
        QTest::newRow("larger") << QByteArray("9000") << QByteArray("5000");
        QTest::newRow("below zero") << QByteArray("-1") << QByteArray("5000");
    }
    void the_image_is_cut_at_the_size_in_its_tag() {
        QFETCH(QByteArray, stored);
        QFETCH(QByteArray, image);
        QByteArray game = taggedGame("T", "C", "I", "D", 5000);
        game.replace("\xA7"
                     "5000",
                     "\xA7" + stored);
        QCOMPARE(valueOf(row("a.gb", game), "image"), image);
        QCOMPARE(valueOf(row("a.gb", game), "tagged"), QByteArray("yes"));
    }
    void a_size_that_is_no_number_makes_no_tag() {
        QByteArray game = taggedGame("T", "C", "I", "D", 5000);
        game.replace("\xA7"
                     "5000",
                     "\xA7much");
        QCOMPARE(valueOf(row("a.gb", game), "tagged"), QByteArray("no"));
    }
    void the_console_is_told_by_the_kind_in_the_name_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QByteArray>("console");
        const auto add = [](const char* name, qint64 size, const char* console) {
            QTest::addRow("%s, %lld", name, static_cast<long long>(size))
                << QByteArray(name) << size << QByteArray(console);
        };
        for (const char* name : {"a.gb", "A.GB", "x.y/a.gb"}) add(name, 1, "GB");
        for (const char* name : {"a.gbc", "a.cgb", "a.Cgb"}) add(name, 1, "GBC");
        for (const char* name : {"a.gba", "a.agb"}) add(name, 1, "GBA");
        add("a.zip", 1, "ZIP");
        for (const char* name : {"a", "a.txt", "a.b.gb", "x.gb/a", ""}) add(name, 1, "");
        add("a.bin", 1024000, "GBA");
        add("a.bin", 1024001, "GB");
        add("a.BIN", 2047999, "GB");
        add("a.bin", 2048000, "");
        add("a.bin", 2048001, "GBC");
        add("a.bin", 1023999, "");
    }
    void the_console_is_told_by_the_kind_in_the_name() {
        QFETCH(QByteArray, name);
        QFETCH(qint64, size);
        QTEST(GameRow::consoleOf(name, size, NameCut()), "console");
    }
    void what_is_no_file_can_not_be_read() {
        QCOMPARE(mkfifo("pipe.gb", 0600), 0);
        const auto failureOfRow = [](const QByteArray& name) {
            return failureOf([&] { GameRow::of({name, name}, NameCut()); });
        };
        QCOMPARE(failureOfRow("pipe.gb"), number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOfRow("no.gb"), number(RuntimeFailure::fileNotFound));
    }
};

TORVANE_APPLESS_TEST(GameFilesTest)
#include "GameFilesTest.moc"

// SPDX-License-Identifier: MIT
// identify, run as a user runs it: lists made for games, games in all states, and what is written.
#include "TagsProgram.h"
#include "catalogue/TagInput.h"
#include "support/Archive.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <QCryptographicHash>

using namespace torvane;
using namespace Qt::StringLiterals;

class IdentifyTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    static QByteArray image(char letter, qsizetype size = 32768) { return QByteArray(size, letter); }
    static QByteArray tagged(const QByteArray& body) {
        return body +
               "ID3TAG\xA7"
               "C\xA7"
               "T\xA7"
               "D\xA7"
               "I\xA7" +
               QByteArray::number(body.size()) + "\xA7\r\n";
    }
    // By the slow rule of the polynomial.
    static QByteArray crc(const QByteArray& bytes) {
        quint32 value = 0xFFFFFFFFU;
        for (const char c : bytes) {
            value ^= static_cast<uchar>(c);
            for (int i = 0; i < 8; ++i) value = value >> 1U ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
        }
        return QByteArray::number(~value, 16).rightJustified(8, '0');
    }
    static QByteArray sha1(const QByteArray& bytes) {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    }
    static QByteArray game(const QByteArray& title, const QByteArray& bytes, const QByteArray& more = {}) {
        return "<game name=\"" + title + "\">" + more + "<rom name=\"" + title + ".gb\" size=\"" +
               QByteArray::number(bytes.size()) + "\" crc=\"" + crc(bytes) + "\" sha1=\"" + sha1(bytes) +
               "\"/></game>\n";
    }
    void writeList(const QByteArray& games, const char* name = "l.dat") const {
        write(name, "<datafile>\n" + games + "</datafile>\n");
    }
    ProgramRun run(const QByteArrayList& arguments) const {
        return program->runHere(QByteArrayList{"identify", "--tsv", "--dat=l.dat"} + arguments);
    }
    static QByteArray remarkOnOne() {
        return "torvane-tags: 1 file could not be read: what it holds counts as missing\n";
    }
    /// The rows, with blanks between their fields.
    QByteArrayList identify(const QByteArrayList& arguments) const {
        const ProgramRun result = run(arguments);
        if (!result.errors.isEmpty()) qWarning("%s", result.errors.constData());
        if (result.status != 0) return {"status " + QByteArray::number(result.status)};
        QByteArrayList rows;
        for (const QByteArray& line : result.output.split('\n').mid(1)) {
            if (!line.isEmpty()) rows += line.simplified();
        }
        return rows;
    }
    QByteArray listed(const char* name) const {
        return program->runHere({"list", "--tsv", name}).output.split('\n').value(1);
    }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    void games_are_matched_unknown_doubled_and_missing() {
        write("a.gb", image('a'));
        write("b.gb", image('b'));
        write("c.gb", image('c'));
        write("copy.gb", image('a'));
        writeList(game("A", image('a')) + game("B", image('b')) + game("D", image('d')));
        QCOMPARE(identify({"a.gb", "b.gb", "c.gb", "copy.gb"}),
                 (QByteArrayList{"doubled a.gb A A.gb", "matched b.gb B B.gb", "unknown c.gb",
                                 "doubled copy.gb A A.gb", "missing D D.gb"}));
    }
    void without_operands_it_takes_the_library() {
        write("home/roms/a.gb", image('a'));
        writeList(game("A", image('a')));
        QCOMPARE(identify({}), QByteArrayList{"matched a.gb A A.gb"});
    }
    void json_names_all_columns() {
        write("a.gb", image('a'));
        writeList(game("A", image('a')));
        QCOMPARE(program->runHere({"identify", "--dat", "l.dat", "--json", "a.gb"}).output,
                 QByteArray(R"({"status":"matched","file":"a.gb","member":null,"game":"A","rom":"A.gb"})"
                            "\n"));
    }
    void tags_and_line_ends_of_saves_do_not_matter() {
        write("tagged.gb", tagged(image('a')));
        write("saved.gb", tagged(image('b') + "\r\n\r\n"));
        write("removed.gb", image('c') + "\r\n");
        writeList(game("A", image('a')) + game("B", image('b')) + game("C", image('c')));
        QCOMPARE(identify({"tagged.gb", "saved.gb", "removed.gb"}),
                 (QByteArrayList{"matched tagged.gb A A.gb", "matched saved.gb B B.gb",
                                 "matched removed.gb C C.gb"}));
    }
    void of_images_of_any_length_the_list_decides_which_line_ends_count() {
        write("one.gba", tagged(image('a', 3001) + "\r\n\r\n"));
        write("own.gba", tagged(image('b', 3001) + "\r\n\r\n"));
        writeList(game("One", image('a', 3001)) + game("Own", image('b', 3001) + "\r\n"));
        QCOMPARE(identify({"one.gba", "own.gba"}),
                 (QByteArrayList{"matched one.gba One One.gb", "matched own.gba Own Own.gb"}));
    }
    void the_strongest_checksum_and_the_size_decide() {
        write("a.gb", image('a'));
        const auto entry = [](const QByteArray& title, const QByteArray& attributes) {
            return "<game name=\"" + title + "\"><rom name=\"r\" " + attributes + "/></game>";
        };
        const QByteArray weak = "crc=\"" + crc(image('a')) + '"';
        const QByteArray strong = "sha1=\"" + sha1(image('a')) + '"';
        const QByteArray wrong = "sha1=\"" + sha1("other") + '"';
        writeList(entry("forged", "size=\"32768\" " + weak + ' ' + wrong) +
                  entry("size", "size=\"32767\" " + strong));
        QCOMPARE(identify({"a.gb"}), (QByteArrayList{"unknown a.gb", "missing forged r", "missing size r"}));
        writeList(entry("weak", "size=\"32768\" " + weak));
        QCOMPARE(identify({"a.gb"}), QByteArrayList{"matched a.gb weak r"});
        writeList(entry("weak", weak) + entry("forged", weak + ' ' + wrong));
        QCOMPARE(identify({"a.gb"}), (QByteArrayList{"matched a.gb weak r", "missing forged r"}));
        writeList(entry("sizeless", strong));
        QCOMPARE(identify({"a.gb"}), QByteArrayList{"matched a.gb sizeless r"});
    }
    void several_names_for_one_game_are_all_kept() {
        write("a.gb", image('a'));
        writeList(game("A", image('a')) + game("Other", image('a')));
        QCOMPARE(identify({"a.gb"}), (QByteArrayList{"doubled a.gb A A.gb", "doubled a.gb Other Other.gb"}));
        const QByteArray a = game("A", image('a'));
        writeList(a + QByteArray(a).replace("A.gb", "B.gb"));
        QCOMPARE(identify({"a.gb"}), (QByteArrayList{"doubled a.gb A A.gb", "doubled a.gb A B.gb"}));
        writeList(game("A", image('a')), "second.dat");
        writeList(game("A", image('a')));
        QCOMPARE(identify({"--dat", "second.dat", "a.gb"}), QByteArrayList{"matched a.gb A A.gb"});
    }

    // Archives
    void members_are_found_by_the_directory_without_being_unpacked() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, image('a')}, {u"b.gb"_s, image('b')}});
        QByteArray bytes = program->folder.read(u"a.zip"_s);
        bytes.replace("aaaa", "xxxx"); // stored members: the directory still has the right CRC
        write("a.zip", bytes);
        writeList(game("A", image('a')));
        QCOMPARE(identify({"a.zip"}), (QByteArrayList{"matched a.zip a.gb A A.gb", "unknown a.zip b.gb"}));
        const ProgramRun deep = run({"--deep", "a.zip"});
        QCOMPARE(deep.status, 1);
        QCOMPARE(deep.errors, "torvane-tags: a.zip: a.gb: it is damaged\n" + remarkOnOne());
        QVERIFY(deep.output.contains("missing"));
        QVERIFY(!deep.output.contains("unknown\ta.zip\ta.gb"));
    }
    void a_member_that_nobody_can_read_is_not_claimed_by_its_directory() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, image('a')}});
        QByteArray bytes = program->folder.read(u"a.zip"_s);
        bytes[bytes.indexOf("PK\x01\x02") + 8] |= 1; // encrypted
        write("a.zip", bytes);
        writeList(game("A", image('a')));
        const ProgramRun result = run({"a.zip"});
        QCOMPARE(result.errors, "torvane-tags: a.zip: a.gb: it is encrypted\n" + remarkOnOne());
        QVERIFY(!result.output.contains("matched"));
    }
    void members_are_unpacked_where_the_directory_is_not_enough() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"tagged.gb"_s, tagged(image('a'))},
                                                        {u"saved.gb"_s, tagged(image('b') + "\r\n")},
                                                        {u"twin.gb"_s, image('c')},
                                                        {u"sha.gb"_s, image('d')}});
        QByteArray without = game("D", image('d'));
        without.replace("crc=", "x=");
        writeList(game("A", image('a')) + game("B", image('b')) + game("C", image('c')) +
                  game("C2", image('c')) + without);
        QCOMPARE(identify({"a.zip"}),
                 (QByteArrayList{"matched a.zip tagged.gb A A.gb", "matched a.zip saved.gb B B.gb",
                                 "doubled a.zip twin.gb C C.gb", "doubled a.zip twin.gb C2 C2.gb",
                                 "matched a.zip sha.gb D D.gb"}));
        QCOMPARE(identify({"--deep", "a.zip"}), identify({"a.zip"}));
    }
    void members_are_unpacked_where_several_entries_have_their_crc() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"twin.gb"_s, image('a')}});
        writeList(game("A", image('a')) + game("A2", image('a')).replace(sha1(image('a')), sha1("other")));
        QCOMPARE(identify({"a.zip"}), (QByteArrayList{"matched a.zip twin.gb A A.gb", "missing A2 A2.gb"}));
    }
    void members_are_found_by_the_directory_in_every_list() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, image('a')}, {u"b.gb"_s, image('b')}});
        writeList(game("A", image('a')));
        writeList(game("B", image('b')), "later.dat");
        QCOMPARE(identify({"--dat", "later.dat", "a.zip"}),
                 (QByteArrayList{"matched a.zip a.gb A A.gb", "matched a.zip b.gb B B.gb"}));
    }
    void members_are_unpacked_for_a_later_list_without_crcs() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, image('a')}});
        writeList(game("B", image('b')));
        writeList(game("A", image('a')).replace("crc=", "x="), "later.dat");
        QCOMPARE(identify({"--dat", "later.dat", "a.zip"}),
                 (QByteArrayList{"matched a.zip a.gb A A.gb", "missing B B.gb"}));
    }

    // Lists
    void without_a_list_nothing_is_done() {
        QCOMPARE(program->runHere({"identify", "a.gb"}).status, 2);
        QCOMPARE(run({"--replace"}).status, 2);
        write("a.gb", image('a'));
        const ProgramRun missing = run({"a.gb"});
        QCOMPARE(missing.status, 1);
        QCOMPARE(missing.output, QByteArray());
        QVERIFY(missing.errors.startsWith("torvane-tags: l.dat: "));
    }
    void an_empty_list_is_reported() {
        write("l.dat", "");
        QCOMPARE(run({}).errors, QByteArray("torvane-tags: l.dat: it has no game with a checksum\n"));
        writeList("");
        QCOMPARE(run({}).errors, QByteArray("torvane-tags: l.dat: it has no game with a checksum\n"));
    }
    void a_broken_list_is_of_no_use_and_others_are() {
        write("a.gb", image('a'));
        write("l.dat", "<datafile>\n" + game("Missing", image('m')) + "<game>");
        writeList(game("A", image('a')), "good.dat");
        const ProgramRun result = run({"--dat", "good.dat", "a.gb"});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.errors,
                 QByteArray("torvane-tags: l.dat: line 3: it ends before its last element does\n"));
        QVERIFY(result.output.contains("matched\ta.gb\t\tA\t"));
        QVERIFY(!result.output.contains("Missing"));
    }
    void many_flawed_entries_are_not_all_reported() {
        writeList(QByteArray("<game name=\"A\"><rom name=\"a\" crc=\"x\"/></game>\n").repeated(1000) +
                  game("M", image('m')));
        const ProgramRun result = run({});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.errors.count('\n'), 11);
        QVERIFY(result.errors.startsWith("torvane-tags: l.dat: line 2: the crc32 is none\n"));
        QVERIFY(result.output.contains("missing\t\t\tM\t"));
        writeList(QByteArray("<game name=\"A\"><rom name=\"a\" crc=\"x\"/></game>\n").repeated(10));
        QVERIFY(!run({}).errors.contains("more"));
    }
    void a_large_list_is_read_again_instead_of_being_kept() {
        write("a.gb", image('a'));
        QByteArray games;
        const QByteArray padding(3000, 'n');
        for (int i = 0; i < 9000; ++i)
            games += "<game name=\"" + padding + QByteArray::number(i) + "\"><rom crc=\"" +
                     QByteArray::number(i + 100, 16) + "\" size=\"99\"/></game>";
        writeList(games + game("A", image('a')));
        const QByteArrayList rows = identify({"a.gb"});
        QCOMPARE(rows.size(), 9001);
        QCOMPARE(rows.front(), QByteArray("matched a.gb A A.gb"));
        QCOMPARE(rows.back(), "missing " + padding + "8999");
    }

    // Writing
    void untagged_games_get_what_the_list_has() {
        write("a.gb", image('a'));
        write("b.gb", image('b'));
        write("tagged.gb", tagged(image('c')));
        writeList(game("A", image('a'),
                       "<description>Caf\xC3\xA9 &amp; A</description><year>1990</year>"
                       "<manufacturer>M</manufacturer>") +
                  game("B", image('b')) + game("C", image('c')));
        const QByteArray before = program->folder.read(u"tagged.gb"_s);
        QCOMPARE(identify({"--write", "a.gb", "b.gb", "tagged.gb"}).size(), 3);
        QCOMPARE(program->folder.read(u"a.gb"_s), image('a') + "ID3TAG\xA7M\xA7"
                                                               "Caf\xE9 & A\xA7"
                                                               "1990\xA7 \xA7"
                                                               "32768\xA7\r\n");
        QVERIFY(program->folder.read(u"b.gb"_s).startsWith(image('b') + "ID3TAG\xA7 \xA7"
                                                                        "B\xA7"));
        QCOMPARE(program->folder.read(u"tagged.gb"_s), before);
    }
    void games_of_several_folders_are_written() {
        const QByteArrayList names = {"a.gb", "one/b.gb", "one/c.gb", "two/d.gb", "home/roms/e.gb"};
        program->folder.makeFolder(u"one"_s);
        program->folder.makeFolder(u"two"_s);
        QByteArray games;
        for (const QByteArray& name : names) {
            const char letter = name.chopped(3).back();
            write(name.constData(), image(letter));
            games += game(QByteArray(1, letter), image(letter));
        }
        writeList(games);
        const QByteArrayList rows = identify({"--write", "a.gb", "one", "two/d.gb", "e.gb"});
        QCOMPARE(rows.last(), QByteArray("matched e.gb e e.gb"));
        for (const QByteArray& name : names)
            QVERIFY2(listed(name.constData()).contains("\tyes\t" + name.chopped(3).right(1) + '\t'),
                     listed(name.constData()));
    }
    void tags_are_replaced_on_demand_and_keep_what_the_list_lacks() {
        write("a.gb", tagged(image('a')));
        writeList(game("New", image('a'), "<year>1991</year>"));
        identify({"--write", "--replace", "a.gb"});
        QVERIFY2(listed("a.gb").contains("\tNew\tC\t1991\t"), listed("a.gb"));
        QVERIFY(listed("a.gb").endsWith("\tI"));
        const FolderTree tree = treeOf(program->folder.path().toStdString());
        identify({"--write", "--replace", "a.gb"});
        QCOMPARE(treeOf(program->folder.path().toStdString()), tree); // nothing is new
    }
    void what_a_tag_can_not_hold_is_refused_with_its_place_and_others_are_written() {
        write("a.gb", image('a'));
        write("b.gb", image('b'));
        writeList(game("P\xC5\x8Dke", image('a')) + game("B", image('b')));
        const ProgramRun result = run({"--write", "a.gb", "b.gb"});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.errors,
                 QByteArray("torvane-tags: a.gb: title: character 2 (\xC5\x8D) is not in code page 1252\n"));
        QCOMPARE(program->folder.read(u"a.gb"_s), image('a'));
        QVERIFY(listed("b.gb").contains("\tB\t"));
    }
    void a_game_whose_tag_no_selection_sees_is_no_untagged_one() {
        const QByteArray bytes = tagged(image('a')) + image('x', 3000);
        write("a.gb", bytes);
        writeList(game("A", image('a')));
        QCOMPARE(identify({"--write", "a.gb"}), QByteArrayList{"matched a.gb A A.gb"});
        QCOMPARE(program->folder.read(u"a.gb"_s), bytes);
    }
    void a_game_with_one_title_of_several_companies_or_years_stays_as_it_is() {
        write("a.gb", image('a'));
        for (const char* field : {"manufacturer", "year"}) {
            const auto entry = [&](const QByteArray& value) {
                return game("A", image('a'), '<' + QByteArray(field) + '>' + value + "</" + field + '>');
            };
            writeList(entry("1") + entry("2").replace("A.gb", "B.gb"));
            const ProgramRun result = run({"--write", "a.gb"});
            QCOMPARE(result.errors, QByteArray("torvane-tags: a.gb: the lists have several names for it\n"));
            QCOMPARE(program->folder.read(u"a.gb"_s), image('a'));
        }
    }
    void a_game_with_several_names_and_archives_stay_as_they_are() {
        write("a.gb", image('a'));
        writeArchive(program->folder.path(u"b.zip"_s), {{u"b.gb"_s, image('b')}});
        writeList(game("A", image('a')) + game("Other", image('a')) + game("B", image('b')));
        const QByteArray before = program->folder.read(u"b.zip"_s);
        const ProgramRun result = run({"--write", "a.gb", "b.zip"});
        QCOMPARE(result.errors, QByteArray("torvane-tags: a.gb: the lists have several names for it\n"));
        QCOMPARE(program->folder.read(u"a.gb"_s), image('a'));
        QCOMPARE(program->folder.read(u"b.zip"_s), before);
    }
    void a_rehearsal_prints_what_would_be_filled_in_and_writes_nothing() {
        write("a.gb", image('a'));
        write("b.gb", tagged(image('b')));
        write("u.gb", image('u'));
        writeList(game("A", image('a'), "<publisher>P</publisher><year>1990</year>") + game("B", image('b')));
        const FolderTree tree = treeOf(program->folder.path().toStdString());
        const QByteArrayList first = {"a.gb title A", "a.gb company P", "a.gb date 1990", "a.gb info"};
        QCOMPARE(identify({"--write", "--dry-run", "a.gb", "b.gb", "u.gb"}), first);
        QCOMPARE(
            identify({"--write", "--dry-run", "--replace", "a.gb", "b.gb"}),
            (first + QByteArrayList{"b.gb title T B", "b.gb date D " + TagInput::todayAsText().toLatin1()}));
        QCOMPARE(treeOf(program->folder.path().toStdString()), tree);
        QCOMPARE(run({"--dry-run", "a.gb"}).status, 2);
    }
    void without_write_nothing_is_written() {
        write("a.gb", image('a'));
        writeList(game("A", image('a')));
        const FolderTree tree = treeOf(program->folder.path().toStdString());
        identify({"a.gb"});
        QCOMPARE(treeOf(program->folder.path().toStdString()), tree);
    }
    void one_bad_file_does_not_stop_the_others() {
        write("a.gb", image('a'));
        write("bad.zip", "no archive");
        writeList(game("A", image('a')));
        const ProgramRun result = run({"bad.zip", "no.gb", "a.gb"});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.errors.count('\n'), 2);
        QVERIFY(result.output.contains("matched\ta.gb\t"));
    }
    void files_that_could_not_be_read_are_counted_where_a_game_is_missing() {
        write("a.gb", image('a'));
        write("bad.zip", "no archive");
        writeList(game("A", image('a')) + game("M", image('m')));
        const ProgramRun result = run({"bad.zip", "no.gb", "a.gb"});
        QCOMPARE(result.status, 1);
        const QByteArrayList lines = result.errors.split('\n');
        QCOMPARE(lines.size(), 4);
        QCOMPARE(lines[2],
                 QByteArray("torvane-tags: 2 files could not be read: what they hold counts as missing"));
        QVERIFY(result.output.endsWith("\nmissing\t\t\tM\tM.gb\n"));
        QVERIFY(!run({"--write", "--dry-run", "no.gb"}).errors.contains("missing"));
    }
    void a_library_that_could_not_be_read_is_counted() {
        writeList(game("M", image('m')));
        QCOMPARE(rmdir(program->folder.native("home/roms").constData()), 0);
        const ProgramRun result = run({});
        QCOMPARE(result.status, 1);
        QVERIFY2(result.errors.endsWith(remarkOnOne()), result.errors);
    }
};

TORVANE_APPLESS_TEST(IdentifyTest)
#include "IdentifyTest.moc"

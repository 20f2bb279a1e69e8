// SPDX-License-Identifier: MIT
// Names with dots, in each command: as they are cut without a setting, and at the last dot alone.
#include "CartridgeImage.h"
#include "TagsProgram.h"
#include "support/Archive.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

#include <QCryptographicHash>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace torvane {
class NamesTest : public QObject {
    Q_OBJECT

    static inline const QByteArray game = "Dr. Game (V1.1) [!].gb";
    static inline const QByteArray archive = "Dr. Pack (V1.0).zip";

    std::unique_ptr<TagsProgram> program;

    void write(const QByteArray& name, const QByteArray& bytes) const {
        program->folder.writeNative(name, bytes);
    }
    QByteArray read(const QByteArray& name) const { return program->folder.read(QString::fromUtf8(name)); }
    void pack(const QByteArray& name, const QList<ArchiveMember>& members) const {
        writeArchive(program->folder.path(QString::fromUtf8(name)), members);
    }
    /// The lines that it prints after the first one, whatever its status is.
    QByteArrayList lines(const QByteArrayList& arguments) const {
        QByteArrayList all = program->runHere(arguments).output.split('\n');
        return all.mid(1, all.size() - 2);
    }
    QByteArray errors(const QByteArrayList& arguments) const { return program->runHere(arguments).errors; }
    static QByteArray reported(const QByteArray& name, const QByteArray& reason) {
        return "torvane-tags: " + name + ": " + reason + '\n';
    }
    static QByteArray sha1(const QByteArray& bytes) {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    }
    static QByteArray entry(const QByteArray& title, const QByteArray& system = "byn") {
        return system + "\xA7" + title +
               "\xA7"
               "New\xA7"
               "2/3/04\xA7"
               "Info\xA7USER\xA7\r\n";
    }
    QByteArray console(const QByteArray& name) const {
        return lines({"list", "--tsv", name}).value(0).split('\t').value(1);
    }
    QByteArray companyOf(const QByteArray& name) const {
        return lines({"list", "--tsv", name}).value(0).split('\t').value(4);
    }
    /// Runs a test with both settings.
    static void addBoth() {
        QTest::addColumn<bool>("isWhole");
        QTest::newRow("every dot") << false;
        QTest::newRow("last dot") << true;
    }
    bool set() const {
        QFETCH(bool, isWhole);
        if (isWhole) program->setting("Names = whole");
        return isWhole;
    }
    /// Makes the emulator a script that prints what it is to play.
    void emulate() const {
        program->environment += "PATH=/usr/bin:/bin";
        program->folder.makeFolder(u"home/ziptemp"_s);
        program->folder.write(u"home/emuladores/emus.dat"_s, "Emu#\\emu.sh\r\n");
        program->folder.write(u"home/emuladores/emu.sh"_s, "#!/bin/sh\nIFS=' '\nprintf '%s' \"$*\"\n");
        program->folder.setMode(u"home/emuladores/emu.sh"_s, 0755);
    }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    // list and show
    void a_row_has_the_console_that_the_list_of_the_window_shows_data() { addBoth(); }
    void a_row_has_the_console_that_the_list_of_the_window_shows() {
        const bool isWhole = set();
        write(game, "x");
        write("v1.gba.gbc", "x");
        write("v1.0.bin", QByteArray(1'024'000, 'x'));
        QCOMPARE(console(game), QByteArray(isWhole ? "GB" : ""));
        QCOMPARE(console("v1.gba.gbc"), QByteArray(isWhole ? "GBC" : "GBA"));
        QCOMPARE(console("v1.0.bin"), QByteArray(isWhole ? "GBA" : ""));
        QCOMPARE(program->runHere({"show", game}).output.contains("GB\n"), isWhole);
    }
    void a_folder_has_the_same_games_data() { addBoth(); }
    void a_folder_has_the_same_games() {
        set();
        for (const QByteArray& name : {game, archive, QByteArray("a.gb"), QByteArray("b.gb.txt")})
            write("home/roms/" + name, "x");
        QByteArrayList names;
        for (const QByteArray& line : lines({"list", "--tsv"})) names += line.split('\t').front();
        QCOMPARE(names, (QByteArrayList{"a.gb", game, archive}));
    }

    // set, clear, copy-tags
    void what_is_an_archive_for_the_list_or_by_its_end_gets_no_tag_data() { addBoth(); }
    void what_is_an_archive_for_the_list_or_by_its_end_gets_no_tag() {
        const bool isWhole = set();
        write("from.gb", taggedGame("T"));
        for (const QByteArray& name : {archive, QByteArray("v1.zip.gb")}) {
            write(name, QByteArray(4096, 'r'));
            const bool isRefused = name == archive || !isWhole;
            const QByteArray expected = isRefused ? reported(name, "an archive gets no tag") : QByteArray();
            QCOMPARE(errors({"set", name, "--title=T", "--company=C", "--info=I"}), expected);
            QCOMPARE(errors({"copy-tags", "from.gb", name}), expected);
            QCOMPARE(companyOf(name), QByteArray(isRefused ? "" : "Acme"));
            QCOMPARE(errors({"clear", name}), expected);
        }
    }
    void a_game_gets_its_tag_data() { addBoth(); }
    void a_game_gets_its_tag() {
        set();
        write(game, QByteArray(4096, 'r'));
        QCOMPARE(errors({"set", game, "--title=T", "--company=C", "--info=I"}), QByteArray());
        QCOMPARE(companyOf(game), QByteArray("C"));
        QCOMPARE(errors({"clear", game}), QByteArray());
        QCOMPARE(companyOf(game), QByteArray());
    }

    // export and import
    void a_line_of_the_database_needs_a_console_data() { addBoth(); }
    void a_line_of_the_database_needs_a_console() {
        const bool isWhole = set();
        write(game, taggedGame("T"));
        const ProgramRun run = program->runHere({"export", game});
        QCOMPARE(run.output.startsWith("byn\xA7T\xA7"), isWhole);
        QCOMPARE(run.errors, isWhole ? QByteArray() : reported(game, "its name does not tell its console"));
        QCOMPARE(run.status, isWhole ? 0 : 1);
    }
    void the_title_of_an_untagged_game_is_its_name_in_the_list_data() { addBoth(); }
    void the_title_of_an_untagged_game_is_its_name_in_the_list() {
        const bool isWhole = set();
        write(game, QByteArray(4096, 'r'));
        write("db", entry(isWhole ? "dr. game (v1.1) [!]" : "dr"));
        write("other", entry(isWhole ? "dr" : "dr. game (v1.1) [!]"));
        QCOMPARE(errors({"import", "other", game}), QByteArray());
        QCOMPARE(companyOf(game), QByteArray());
        QCOMPARE(errors({"import", "db", game}), QByteArray());
        QCOMPARE(companyOf(game), QByteArray("New"));
    }
    void an_entry_of_another_console_is_not_taken_where_the_list_knows_it_data() { addBoth(); }
    void an_entry_of_another_console_is_not_taken_where_the_list_knows_it() {
        const bool isWhole = set();
        write(game, taggedGame("T"));
        write("db", entry("T", "color"));
        QCOMPARE(errors({"import", "db", game}), QByteArray());
        QCOMPARE(companyOf(game), QByteArray(isWhole ? "Acme" : "New"));
    }

    // verify
    void the_header_is_checked_by_the_end_of_a_name_data() { addBoth(); }
    void the_header_is_checked_by_the_end_of_a_name() {
        set();
        QByteArray image = CartridgeImage::gameBoy();
        image[0x7FFF] = 1;
        write(game, image);
        const QByteArrayList found = lines({"verify", "--tsv", game});
        QCOMPARE(found.size(), 1);
        QVERIFY(found[0].startsWith(game + "\tchecksum of the image\t"));
        for (const QByteArray& name : {QByteArray("v1.zip.gb"), QByteArray("v1.gba.gb")}) {
            write(name, CartridgeImage::gameBoy());
            QCOMPARE(lines({"verify", "--tsv", name}), QByteArrayList());
        }
        write("v1.gb.bin", QByteArray(256, 'x'));
        QCOMPARE(lines({"verify", "--tsv", "v1.gb.bin"}), QByteArrayList());
    }
    void an_archive_needs_a_game_that_can_be_unpacked_data() { addBoth(); }
    void an_archive_needs_a_game_that_can_be_unpacked() {
        const bool isWhole = set();
        pack(archive, {{QString::fromUtf8(game), "x"}});
        const QByteArrayList finding{archive + "\tno game in the archive\t\t\t"};
        QCOMPARE(lines({"verify", "--tsv", archive}), isWhole ? QByteArrayList() : finding);
        pack(archive, {{u"Folder/"_s + QString::fromUtf8(game), "x"}, {u"Folder/x.gb"_s, "x"}});
        QCOMPARE(lines({"verify", "--tsv", archive}), QByteArrayList());
    }

    // hash and identify
    void what_is_in_an_archive_is_what_its_window_lists_data() { addBoth(); }
    void what_is_in_an_archive_is_what_its_window_lists() {
        const bool isWhole = set();
        pack(archive, {{QString::fromUtf8(game), "dotted"}, {u"a.gb"_s, "plain"}, {u"b.gb.txt"_s, "text"}});
        const QByteArray start = archive + '\t';
        const QByteArray dotted = start + game + "\t6\t" + sha1("dotted");
        const QByteArray plain = start + "a.gb\t5\t" + sha1("plain");
        const QByteArray text = start + "b.gb.txt\t4\t" + sha1("text");
        QCOMPARE(lines({"hash", "--tsv", "--only=sha1", archive}),
                 isWhole ? (QByteArrayList{dotted, plain}) : (QByteArrayList{plain, text}));
    }
    void a_file_is_read_by_the_end_of_its_name_data() { addBoth(); }
    void a_file_is_read_by_the_end_of_its_name() {
        set();
        for (const QByteArray& name : {game, QByteArray("v1.zip.gb")}) {
            write(name, "game");
            QCOMPARE(lines({"hash", "--tsv", "--only=sha1", name}),
                     QByteArrayList{name + "\t\t4\t" + sha1("game")});
        }
        write("l.dat", "<datafile><game name=\"G\"><rom name=\"G.gb\" size=\"4\" sha1=\"" + sha1("game") +
                           "\"/></game></datafile>");
        QCOMPARE(lines({"identify", "--tsv", "--dat=l.dat", "v1.zip.gb"}),
                 QByteArrayList{"matched\tv1.zip.gb\t\tG\tG.gb"});
    }
    void a_member_is_identified_if_the_window_lists_it_data() { addBoth(); }
    void a_member_is_identified_if_the_window_lists_it() {
        const bool isWhole = set();
        pack("a.zip", {{QString::fromUtf8(game), "game"}});
        write("l.dat", "<datafile><game name=\"G\"><rom name=\"G.gb\" size=\"4\" sha1=\"" + sha1("game") +
                           "\"/></game></datafile>");
        QCOMPARE(lines({"identify", "--tsv", "--dat=l.dat", "--deep", "a.zip"}),
                 QByteArrayList{isWhole ? "matched\ta.zip\t" + game + "\tG\tG.gb"
                                        : QByteArray("missing\t\t\tG\tG.gb")});
    }
    void a_game_that_a_list_knows_gets_its_tag_unless_it_is_an_archive_for_the_list_data() { addBoth(); }
    void a_game_that_a_list_knows_gets_its_tag_unless_it_is_an_archive_for_the_list() {
        const bool isWhole = set();
        const QByteArray image(4096, 'r');
        write("v1.zip.gb", image);
        write("l.dat", "<datafile><game name=\"G\"><manufacturer>Maker</manufacturer><rom name=\"G.gb\" "
                       "size=\"4096\" sha1=\"" +
                           sha1(image) + "\"/></game></datafile>");
        QCOMPARE(errors({"identify", "--write", "--dat=l.dat", "v1.zip.gb"}),
                 isWhole ? QByteArray() : reported("v1.zip.gb", "an archive gets no tag"));
        QCOMPARE(companyOf("v1.zip.gb"), QByteArray(isWhole ? "Maker" : ""));
    }

    // play
    void a_game_is_started_data() { addBoth(); }
    void a_game_is_started() {
        set();
        emulate();
        write(game, "x");
        const ProgramRun run = program->runHere({"play", game});
        QCOMPARE(run.output, program->folder.native(game));
        QCOMPARE(run.status, 0);
    }
    void a_game_of_an_archive_is_started_if_the_window_unpacks_it_data() { addBoth(); }
    void a_game_of_an_archive_is_started_if_the_window_unpacks_it() {
        const bool isWhole = set();
        emulate();
        pack("a.zip", {{QString::fromUtf8(game), "x"}});
        const ProgramRun run = program->runHere({"play", "a.zip"});
        QCOMPARE(run.output.endsWith('/' + game), isWhole);
        QCOMPARE(run.errors, isWhole ? QByteArray() : reported("a.zip", "there is no game in it"));
        QCOMPARE(program->folder.entries(u"home/ziptemp"_s), QStringList());
    }
    void an_archive_that_the_list_does_not_know_goes_to_the_emulator_unless_a_game_is_named_data() {
        addBoth();
    }
    void an_archive_that_the_list_does_not_know_goes_to_the_emulator_unless_a_game_is_named() {
        const bool isWhole = set();
        emulate();
        pack(archive, {{u"a.gb"_s, "x"}});
        QVERIFY(program->runHere({"play", archive}).output.endsWith(isWhole ? "/a.gb" : '/' + archive));
        QVERIFY(program->runHere({"play", archive, "a.gb"}).output.endsWith("/a.gb"));
        write("v1.zip.gb", "x");
        QCOMPARE(errors({"play", "v1.zip.gb"}),
                 isWhole ? QByteArray() : reported("v1.zip.gb", "it is damaged"));
    }

    // The setting
    void it_is_read_and_nothing_is_written() {
        write(game, "x");
        FolderTree before = treeOf(program->folder.path().toStdString());
        QCOMPARE(console(game), QByteArray());
        QCOMPARE(treeOf(program->folder.path().toStdString()), before);
        program->setting("Names = whole");
        before = treeOf(program->folder.path().toStdString());
        QCOMPARE(console(game), QByteArray("GB"));
        QCOMPARE(treeOf(program->folder.path().toStdString()), before);
    }
    void any_other_word_changes_nothing() {
        write(game, "x");
        for (const char* line : {"Names = Whole", "Names =", "Names = 1", "Name = whole"}) {
            program->setting(line);
            QCOMPARE(console(game), QByteArray());
        }
    }
    void settings_that_can_not_be_read_change_nothing() {
        write(game, "x");
        program->folder.makeFolder(u"config/Torvane/Torvane.conf"_s);
        QCOMPARE(console(game), QByteArray());
        QCOMPARE(errors({"list", game}), QByteArray());
    }
};
} // namespace torvane

using torvane::NamesTest;
TORVANE_GUILESS_TEST(NamesTest)
#include "NamesTest.moc"

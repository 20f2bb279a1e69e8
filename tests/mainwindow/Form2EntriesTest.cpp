// SPDX-License-Identifier: MIT
// Writing an entry into a game: games that can't be written, and entries of all kinds.
#include "support/Failing.h"
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class Form2EntriesTest : public OpenedDatabase {
    Q_OBJECT

    const QByteArray image = QByteArray(3000, 'r');
    const QString tagged = u"tagged.gb"_s;
    const QString untagged = u"g001.gb"_s;

    QByteArray taggedBytes() const { return image + "\r\n" + oldTag("3000"); }
    static QByteArray line(const QByteArray& company, const QByteArray& title, const QByteArray& info) {
        return "ID3TAG\xA7" + company + '\xA7' + title + '\xA7' + today() + '\xA7' + info +
               "\xA7"
               "3000\xA7\r\n";
    }
    // Opens the window that asks for a game with an entry, over a tagged game and two others.
    void openWith(const QByteArray& company, const QByteArray& info) {
        opened->game(tagged, taggedBytes());
        openDatabase(dbLine({"byn", "Title", company, "1/1/2002", info, "SYSTEM", "torvane"}));
        useRow(0);
    }
    void checkFailure(const QString& name) const {
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(name), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(chooser().isVisible());
    }
    // Besides a backup, which comes before the change.
    QStringList namesOfGames() const {
        QStringList names = opened->world.folder.entries(u"roms"_s);
        names.removeAll(u"data"_s);
        return names;
    }
    void writeEntryInto(int row, const QString& name) const {
        collectGone();
        useRow(row);
        writeInto(name);
    }
    static void gameRows() {
        QTest::addColumn<bool>("isTagged");
        QTest::newRow("tagged") << true;
        QTest::newRow("untagged") << false;
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // Games that can't be written
    void a_read_only_game_is_reported_and_stays_as_it_is_data() { gameRows(); }
    void a_read_only_game_is_reported_and_stays_as_it_is() {
        QFETCH(bool, isTagged);
        const QString name = isTagged ? tagged : untagged;
        openWith("Company", "Info");
        const QByteArray before = opened->bytesOf(name);
        opened->world.folder.setMode(u"roms"_s, 0777);
        opened->world.folder.setMode(u"roms/"_s + name, 0444);
        {
            const OrdinaryUser user;
            writeInto(name);
        }
        checkFailure(name);
        QCOMPARE(opened->bytesOf(name), before);
        QCOMPARE(namesOfGames(), QStringList({u"g001.gb"_s, u"g002.gb"_s, u"tagged.gb"_s}));
        writeInto(u"g002.gb"_s);
        QCOMPARE(messages().last(), u"TAG Completado"_s);
        QVERIFY(loaded<Form2>() == nullptr);
    }
    void a_game_in_a_folder_that_cannot_be_written_stays_as_it_is_data() { gameRows(); }
    void a_game_in_a_folder_that_cannot_be_written_stays_as_it_is() {
        QFETCH(bool, isTagged);
        const QString name = isTagged ? tagged : untagged;
        openWith("Company", "Info");
        const QByteArray before = opened->bytesOf(name);
        opened->world.folder.setMode(u"roms/"_s + name, 0666);
        opened->world.folder.setMode(u"roms"_s, 0555);
        {
            const OrdinaryUser user;
            writeInto(name);
        }
        opened->world.folder.setMode(u"roms"_s, 0755);
        checkFailure(name);
        QCOMPARE(opened->bytesOf(name), before);
    }
    void a_full_disk_is_reported_and_the_game_stays_as_it_is_data() { gameRows(); }
    void a_full_disk_is_reported_and_the_game_stays_as_it_is() {
        QFETCH(bool, isTagged);
        const QString name = isTagged ? tagged : untagged;
        openWith("Company", "Info");
        const QByteArray before = opened->bytesOf(name);
        {
            const FullDisk full(isTagged ? 500 : 3020); // some of the new bytes fit
            writeInto(name);
        }
        checkFailure(name);
        QCOMPARE(opened->bytesOf(name), before);
        QCOMPARE(namesOfGames(), QStringList({u"g001.gb"_s, u"g002.gb"_s, u"tagged.gb"_s}));
        click(chooser().Command1);
        QCOMPARE(messages().last(), u"TAG Completado"_s);
        QVERIFY(opened->bytesOf(name).endsWith(line("Company", "Title", "Info")));
    }

    // Entries
    void empty_fields_of_an_entry_become_blanks_in_a_first_tag() {
        openWith("", "");
        writeInto(untagged);
        QCOMPARE(opened->bytesOf(untagged), image + line(" ", "Title", " "));
    }
    void empty_fields_of_an_entry_stay_empty_in_a_tag_that_replaces_another() {
        openWith("", "");
        writeInto(tagged);
        QVERIFY(opened->bytesOf(tagged).endsWith("\r\n" + line("", "Title", "")));
    }
    void a_long_entry_is_written_whole_data() { gameRows(); }
    void a_long_entry_is_written_whole() {
        QFETCH(bool, isTagged);
        const QString name = isTagged ? tagged : untagged;
        const QByteArray info = QByteArray("Many words. ").repeated(300) + "END";
        openWith("Company", info);
        writeInto(name);
        QVERIFY(opened->bytesOf(name).endsWith(line("Company", "Title", info)));
        QCOMPARE(messages().last(), u"TAG Completado"_s);
    }
    void an_entry_too_long_to_be_shown_is_announced_once_a_game_is_chosen() {
        const QString usual = u"Torvane 1.1 » Use ROM.TAG"_s;
        const QString hint = u"Torvane 1.1 » Text too long to show"_s;
        const QByteArray longest(1025 - line(" ", "Title", "").size(), 'i');
        const auto entry = [](const QByteArray& info) {
            return dbLine({"byn", "Title", "", "1/1/2002", info, "SYSTEM", "torvane"});
        };
        openDatabase(entry(longest) + entry(longest + 'i'));
        useRow(1);
        QCOMPARE(chooser().Label1.Caption(), usual);
        chooseGame(untagged);
        QCOMPARE(chooser().Label1.Caption(), hint);
        useRow(0); // while the window is open
        QCOMPARE(chooser().Label1.Caption(), usual);
        useRow(1);
        QCOMPARE(chooser().Label1.Caption(), hint);
        useRow(0);
        writeInto(untagged);
        writeEntryInto(1, u"g002.gb"_s);
        click(window().chameleonButton1);
        // It says what is true.
        QCOMPARE(main().GameInfo.Caption(), QString::fromLatin1(longest));
        opened->chooseRow(1);
        QCOMPARE(main().GameInfo.Caption(), u"Not available"_s);
    }
    void every_byte_of_a_field_arrives_in_the_game_data() { gameRows(); }
    void every_byte_of_a_field_arrives_in_the_game() {
        QFETCH(bool, isTagged);
        const QString name = isTagged ? tagged : untagged;
        QByteArray info;
        for (int byte = 0; byte < 256; ++byte) {
            // What ends a field or a line in the database.
            if (byte != '\r' && byte != '\n' && byte != 0xA7) info += static_cast<char>(byte);
        }
        const QByteArray company("C\0\x1A.", 4);
        openWith(company, info);
        writeInto(name);
        QVERIFY(opened->bytesOf(name).endsWith(line(company, "Title", info)));
    }
    void control_characters_and_all_that_follow_them_are_shown_by_the_main_window() {
        const QByteArray info("before\0between\x1A"
                              "after",
                              20);
        openWith("Company", info);
        writeInto(untagged);
        click(window().chameleonButton1);
        QCOMPARE(main().GameInfo.Caption(), QString::fromLatin1(info));
    }
};

TORVANE_TEST(Form2EntriesTest)
#include "Form2EntriesTest.moc"

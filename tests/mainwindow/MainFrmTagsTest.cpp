// SPDX-License-Identifier: MIT
// Tags in the main window: the two faces, what a save and a deletion leave in the file, byte for byte, and
// what is reported when they fail.
#include "support/Failing.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QLocale>

using namespace torvane;

namespace {
QByteArray image(qsizetype size = 3000) { return QByteArray(size, 'r'); }

QByteArray tagLine(const QByteArray& fields) { return "ID3TAG\xA7" + fields + "\xA7\r\n"; }

QByteArray today() {
    return QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toLatin1();
}

/// The line that a save writes.
QByteArray savedLine(const QByteArray& company, const QByteArray& title, const QByteArray& info, int size) {
    return tagLine(company + '\xA7' + title + '\xA7' + today() + '\xA7' + info + '\xA7' +
                   QByteArray::number(size));
}
const QString gameName = QStringLiteral("a.gb");
} // namespace

class MainFrmTagsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }
    FakeMessages& messages() const { return opened->world.messages; }

    MainFrm& openOn(const QByteArray& bytes) {
        opened->game(gameName, bytes);
        MainFrm& main = opened->open();
        click(main.Edit_Menu);
        return main;
    }
    void enter(TextBox& field, const QString& text) {
        click(field);
        QTest::keyClick(field.focusProxy(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field.focusProxy(), Qt::Key_Delete);
        typeText(*field.focusProxy(), text);
    }
    void enterAll(const char* title, const char* company, const char* info) {
        enter(window().EditID3Title, QString::fromUtf8(title));
        enter(window().EditID3Company, QString::fromUtf8(company));
        enter(window().EditID3Info, QString::fromUtf8(info));
    }
    void save() { click(window().chameleonButton19); }
    void clear() { click(window().chameleonButton11); }
    void expectReportedAndFormKept(const char* number) {
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().endsWith(QStringLiteral(" (%1)").arg(QLatin1String(number))),
                 qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(window().EditID3Title.Text(), QStringLiteral("New title"));
        QCOMPARE(window().EditID3Company.Text(), QStringLiteral("New company"));
        QCOMPARE(window().EditID3Info.Text(), QStringLiteral("New info"));
        QVERIFY(isSeen(window().Picture1_1));
        QCOMPARE(opened->world.folder.entries(QStringLiteral("roms")), QStringList{gameName});
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void the_two_tabs_switch_the_faces_and_the_active_one_is_green() {
        opened->game(gameName);
        MainFrm& main = opened->open();
        QCOMPARE(main.ID3_Menu.ForeColor(), 49152U);
        QCOMPARE(main.Edit_Menu.ForeColor(), 8421504U);
        click(main.Edit_Menu);
        QVERIFY(isSeen(main.Picture1_1));
        QVERIFY(!isSeen(main.Picture1_0));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» Edit ROM.TAG"));
        QCOMPARE(main.Edit_Menu.ForeColor(), 49152U);
        QCOMPARE(main.ID3_Menu.ForeColor(), 8421504U);
        click(main.ID3_Menu);
        QVERIFY(isSeen(main.Picture1_0));
        QVERIFY(!isSeen(main.Picture1_1));
        QCOMPARE(main.Label17.Caption(), QStringLiteral("» ROM.TAG Info"));
        QCOMPARE(main.ID3_Menu.ForeColor(), 49152U);
        QCOMPARE(main.Edit_Menu.ForeColor(), 8421504U);
    }
    void a_tag_is_shown_on_both_faces() {
        MainFrm& main = openOn(image(1500000) + tagLine("Acme\xA7Title\xA7"
                                                        "1/2/03\xA7Info\xA7"
                                                        "1500000"));
        QCOMPARE(main.GameAutor.Caption(), QStringLiteral("Acme"));
        QCOMPARE(main.GameTitle.Caption(), QStringLiteral("Title"));
        QCOMPARE(main.GameDate.Caption(), QStringLiteral("1/2/03"));
        QCOMPARE(main.GameInfo.Caption(), QStringLiteral("Info"));
        QCOMPARE(main.GameFormat.Caption(), QStringLiteral("GameBoy [1500KB]"));
        QCOMPARE(main.EditID3Company.Text(), QStringLiteral("Acme"));
        QCOMPARE(main.EditID3Title.Text(), QStringLiteral("Title"));
        QCOMPARE(main.EditID3Info.Text(), QStringLiteral("Info"));
        QCOMPARE(main.Label2.Caption(), QStringLiteral("121"));
    }
    void text_from_a_file_is_shown_literally() {
        MainFrm& main = openOn(image() + tagLine("100%s & %n\xA7<b>T</b> &amp;\xA7"
                                                 "1\xA7<img src='x'>\xA7"
                                                 "3000"));
        QCOMPARE(main.GameTitle.Caption(), QStringLiteral("<b>T</b> &amp;"));
        QCOMPARE(main.GameAutor.Caption(), QStringLiteral("100%s & %n"));
        QCOMPARE(main.EditID3Info.Text(), QStringLiteral("<img src='x'>"));
        main.EditID3Title.setText(QStringLiteral("T"));
        click(main.ID3_Menu);
        const QImage marked = main.GameTitle.grab().toImage();
        main.GameTitle.setCaption(QStringLiteral("T &amp;"));
        QVERIFY(main.GameTitle.grab().toImage() != marked);
    }
    void every_byte_of_untouched_fields_survives_a_save() {
        QByteArray odd;
        for (int byte = 0x20; byte < 0x100; ++byte) {
            if (byte != 0xA7) odd += static_cast<char>(byte);
        }
        openOn(image() + tagLine("c" + odd + "\xA7t" + odd +
                                 "\xA7"
                                 "1\xA7short\xA7"
                                 "3000"));
        enter(window().EditID3Info, QStringLiteral("new"));
        save();
        QCOMPARE(opened->bytesOf(gameName), image() + "\r\n" + savedLine("c" + odd, "t" + odd, "new", 3002));
    }

    void the_fields_keep_what_was_saved_even_if_the_reader_misses_it() {
        openOn(image(500));
        enter(window().EditID3Title, QStringLiteral("Small"));
        enter(window().EditID3Company, QStringLiteral("Tiny"));
        enter(window().EditID3Info, QStringLiteral("A file under 2,048 bytes"));
        save();
        QVERIFY(opened->bytesOf(gameName).contains("Small"));
        QCOMPARE(window().EditID3Title.Text(), QStringLiteral("Small"));
        QCOMPARE(window().EditID3Company.Text(), QStringLiteral("Tiny"));
        QCOMPARE(window().EditID3Info.Text(), QStringLiteral("A file under 2,048 bytes"));
        QCOMPARE(window().GameTitle.Caption(), opened->text("globals", "nodisp"));
    }
    void a_line_too_long_for_the_reader_is_announced_on_the_status_line_data() {
        QTest::addColumn<int>("lineLength");
        QTest::addColumn<bool>("isTooLong");
        QTest::newRow("the longest that is read") << 1025 << false;
        QTest::newRow("one more") << 1026 << true;
    }
    void a_line_too_long_for_the_reader_is_announced_on_the_status_line() {
        QFETCH(int, lineLength);
        QFETCH(bool, isTooLong);
        openOn(image());
        const qsizetype rest = savedLine("c", "t", "", 3000).size();
        enter(window().EditID3Company, QStringLiteral("c"));
        enter(window().EditID3Title, QStringLiteral("t"));
        const QString info(lineLength - rest, QLatin1Char('i'));
        window().EditID3Info.setText(info);
        const QString said = window().Label13.Caption();
        QCOMPARE(said == QStringLiteral("» ") + opened->text("MainMenu", "toolong"), isTooLong);
        save();
        QCOMPARE(opened->bytesOf(gameName).size(), 3000 + lineLength);
        QCOMPARE(window().EditID3Info.Text(), info);
        QCOMPARE(window().GameTitle.Caption() == QStringLiteral("t"), !isTooLong);
    }
    void a_game_selected_during_a_save_keeps_its_own_fields() {
        opened->game(QStringLiteral("b.gb"), image() + tagLine("c2\xA7t2\xA7"
                                                               "1\xA7i2\xA7"
                                                               "3000"));
        openOn(image() + tagLine("c\xA7t\xA7"
                                 "1\xA7i\xA7"
                                 "3000"));
        enterAll("T", "C", "I");
        QTimer::singleShot(0, this, [this] { window().selectGame(1); });
        emit window().chameleonButton19.Click();
        QCOMPARE(opened->bytesOf(gameName), image() + "\r\n" + savedLine("C", "T", "I", 3002));
        QCOMPARE(window().Games.FileName(), QStringLiteral("b.gb"));
        QCOMPARE(window().EditID3Title.Text(), QStringLiteral("t2"));
        QCOMPARE(window().EditID3Company.Text(), QStringLiteral("c2"));
        QCOMPARE(window().EditID3Info.Text(), QStringLiteral("i2"));
    }
    void a_save_appends_a_line_of_the_fields_and_todays_date() {
        openOn(image());
        enterAll("The title", "Señor & Co.", "What it is");
        save();
        QCOMPARE(opened->bytesOf(gameName),
                 image() + savedLine("Se\xF1or & Co.", "The title", "What it is", 3000));
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), QStringLiteral("TAG Completado"));
        QCOMPARE(messages().boxes.last().flags, 0);
    }
    void after_a_save_the_other_face_shows_what_the_file_says() {
        openOn(image());
        enterAll("The title", "Acme", "What it is");
        save();
        QCOMPARE(window().GameTitle.Caption(), QStringLiteral("The title"));
        QCOMPARE(window().GameAutor.Caption(), QStringLiteral("Acme"));
        QCOMPARE(window().GameDate.Caption(), QString::fromLatin1(today()));
        QVERIFY(isSeen(window().Picture1_1));
        QCOMPARE(window().Label17.Caption(), QStringLiteral("» Edit ROM.TAG"));
    }
    void each_save_of_a_tagged_game_grows_it_by_two_bytes() {
        openOn(image());
        enterAll("T", "C", "I");
        save();
        const qsizetype first = opened->bytesOf(gameName).size();
        save();
        QCOMPARE(opened->bytesOf(gameName).size(), first + 2);
        QCOMPARE(opened->bytesOf(gameName), image() + "\r\n" + savedLine("C", "T", "I", 3002));
        save();
        QCOMPARE(opened->bytesOf(gameName), image() + "\r\n\r\n" + savedLine("C", "T", "I", 3004));
    }
    void an_incomplete_form_is_reported_and_writes_nothing_data() {
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArray>("company");
        QTest::addColumn<QByteArray>("info");
        QTest::newRow("no title") << QByteArray() << QByteArray("C") << QByteArray("I");
        QTest::newRow("no company") << QByteArray("T") << QByteArray() << QByteArray("I");
        QTest::newRow("no info") << QByteArray("T") << QByteArray("C") << QByteArray();
        QTest::newRow("nothing") << QByteArray() << QByteArray() << QByteArray();
        QTest::newRow("title not available")
            << QByteArray("Not available") << QByteArray("C") << QByteArray("I");
    }
    void an_incomplete_form_is_reported_and_writes_nothing() {
        QFETCH(QByteArray, title);
        QFETCH(QByteArray, company);
        QFETCH(QByteArray, info);
        openOn(image());
        enterAll(title.constData(), company.constData(), info.constData());
        save();
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(),
                 QStringLiteral("Hay datos ROM.TAG incompletos.\r\nThere are ROM.TAG data incomplete."));
        QCOMPARE(messages().boxes.last().title, QStringLiteral("Error"));
        QCOMPARE(messages().boxes.last().flags, 64);
        QCOMPARE(opened->bytesOf(gameName), image());
    }
    void a_blank_counts_as_a_value() {
        openOn(image());
        enterAll(" ", " ", " ");
        save();
        QCOMPARE(opened->bytesOf(gameName), image() + savedLine(" ", " ", " ", 3000));
    }
    void the_company_of_the_shifted_form_survives_a_save() {
        openOn(image() + tagLine("V\xF6\xA7R\xE4N\xA7Title\xA7"
                                 "1\xA7Info\xA7"
                                 "3000"));
        QCOMPARE(window().GameAutor.Caption(), QStringLiteral("Vö§RäN"));
        QCOMPARE(window().GameTitle.Caption(), QStringLiteral("Title"));
        enter(window().EditID3Title, QStringLiteral("Other"));
        save();
        QCOMPARE(opened->bytesOf(gameName),
                 image() + "\r\n" + savedLine("V\xF6\xA7R\xE4N", "Other", "Info", 3002));
        QCOMPARE(window().GameTitle.Caption(), QStringLiteral("Other"));
        QCOMPARE(window().GameAutor.Caption(), QStringLiteral("Vö§RäN"));
    }

    // Deletion of a tag
    void deleting_a_tag_leaves_the_image_and_a_line_end_and_keeps_the_game_selected() {
        opened->games(2);
        opened->game(QStringLiteral("z.gb"), image() + tagLine("C\xA7T\xA7"
                                                               "1\xA7I\xA7"
                                                               "3000"));
        MainFrm& main = opened->open();
        opened->chooseRow(2);
        click(main.Edit_Menu);
        QCOMPARE(main.EditID3Title.Text(), QStringLiteral("T"));
        clear();
        QCOMPARE(opened->bytesOf(QStringLiteral("z.gb")), image() + "\r\n");
        QCOMPARE(main.Games.ListIndex(), 2);
        QCOMPARE(main.ListView1.currentRow(), 2);
        QCOMPARE(main.Label41.Caption(), QStringLiteral("#3/3"));
        QCOMPARE(main.EditID3Title.Text(), QString());
        QCOMPARE(main.GameTitle.Caption(), QStringLiteral("Not available"));
        QVERIFY(isSeen(main.Picture1_1));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void deleting_a_tag_keeps_a_far_game_in_view() {
        opened->games(40);
        opened->game(QStringLiteral("z.gb"), image() + tagLine("C\xA7T\xA7"
                                                               "1\xA7I\xA7"
                                                               "3000"));
        MainFrm& main = opened->open();
        main.ListView1.setFocus();
        QTest::keyClick(&main.ListView1, Qt::Key_End);
        click(main.Edit_Menu);
        clear();
        QCOMPARE(main.Games.ListIndex(), 40);
        const int top = main.ListView1.seenTop() + 40 * 33;
        QVERIFY(top >= 0 && top + 33 <= main.Picture2.height());
    }
    void deleting_the_tag_of_an_untagged_game_changes_nothing() {
        opened->games(2);
        MainFrm& main = opened->open();
        opened->chooseRow(1);
        click(main.Edit_Menu);
        enter(main.EditID3Title, QStringLiteral("typed"));
        const QSignalSpy clicks(&main.Games, &FileList::Click);
        clear();
        QCOMPARE(opened->bytesOf(QStringLiteral("g002.gb")), image());
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(main.Games.ListIndex(), 1);
        QCOMPARE(main.EditID3Title.Text(), QStringLiteral("typed"));
        QCOMPARE(messages().boxes.size(), 0);
    }
    void without_a_game_there_is_no_tag_to_delete() {
        opened->open();
        click(window().Edit_Menu);
        clear();
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }

    // Failures
    void a_save_without_room_is_reported_and_leaves_file_and_form_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<int>("largestFile");
        const QByteArray tagged = image() + tagLine("C\xA7T\xA7"
                                                    "1\xA7I\xA7"
                                                    "3000");
        QTest::newRow("no tag, no room") << image() << 3000;
        QTest::newRow("no tag, room for half a line") << image() << 3010;
        QTest::newRow("tag, no room for the image") << tagged << 2000;
        QTest::newRow("tag, room for the image alone") << tagged << 3002;
    }
    void a_save_without_room_is_reported_and_leaves_file_and_form() {
        QFETCH(QByteArray, before);
        QFETCH(int, largestFile);
        openOn(before);
        enterAll("New title", "New company", "New info");
        {
            const FullDisk full(static_cast<rlim_t>(largestFile));
            save();
        }
        QCOMPARE(opened->bytesOf(gameName), before);
        expectReportedAndFormKept("61");
    }
    void a_save_into_a_read_only_library_is_reported_and_leaves_file_and_form_data() {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("no tag") << image();
        QTest::newRow("tag") << image() + tagLine("C\xA7T\xA7"
                                                  "1\xA7I\xA7"
                                                  "3000");
    }
    void a_save_into_a_read_only_library_is_reported_and_leaves_file_and_form() {
        QFETCH(QByteArray, before);
        openOn(before);
        enterAll("New title", "New company", "New info");
        opened->world.folder.setMode(QStringLiteral("roms/a.gb"), 0444);
        opened->world.folder.setMode(QStringLiteral("roms"), 0555);
        {
            const OrdinaryUser user;
            save();
        }
        opened->world.folder.setMode(QStringLiteral("roms"), 0755);
        QCOMPARE(opened->bytesOf(gameName), before);
        expectReportedAndFormKept("70");
    }
    void a_save_of_a_vanished_game_is_reported_and_creates_no_file() {
        openOn(image());
        enterAll("New title", "New company", "New info");
        QVERIFY(QFile::remove(opened->world.folder.path(QStringLiteral("roms/a.gb"))));
        save();
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(messages().last().endsWith(QStringLiteral(" (53)")));
        QCOMPARE(opened->world.folder.entries(QStringLiteral("roms")), QStringList());
        QCOMPARE(window().EditID3Title.Text(), QStringLiteral("New title"));
        QCOMPARE(opened->world.ends, 0);
    }
    void a_failed_deletion_is_reported_and_leaves_file_and_form() {
        const QByteArray before = image() + tagLine("C\xA7T\xA7"
                                                    "1\xA7I\xA7"
                                                    "3000");
        openOn(before);
        enterAll("New title", "New company", "New info");
        {
            const FullDisk full(1000);
            clear();
        }
        QCOMPARE(opened->bytesOf(gameName), before);
        expectReportedAndFormKept("61");
    }
    void an_invalid_tag_is_reported_and_not_deleted() {
        const QByteArray before = image() + tagLine("C\xA7T\xA7"
                                                    "1\xA7I\xA7"
                                                    "many");
        openOn(before);
        enterAll("New title", "New company", "New info");
        clear();
        QCOMPARE(opened->bytesOf(gameName), before);
        expectReportedAndFormKept("13");
    }
};

TORVANE_TEST(MainFrmTagsTest)
#include "MainFrmTagsTest.moc"

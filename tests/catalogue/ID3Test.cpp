// SPDX-License-Identifier: MIT
// Tags in ROM files: what is read, and what an append writes, byte for byte.
#include "ID3Fixture.h"
#include "catalogue/TagLine.h"
#include "platform/base/CodePage1252.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <sys/stat.h>

using namespace torvane;

class ID3Test : public ID3Fixture {
    Q_OBJECT

private slots:
    void an_appended_line_has_exactly_these_bytes() {
        const QString path = file(image(3000));
        fillNew("Señor", "Title", "Info");
        id3->AppendRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(3000) + "ID3TAG\xA7Se\xF1or\xA7Title\xA7"
                                                                       "21/11/26\xA7Info\xA7"
                                                                       "3000\xA7\r\n");
    }
    void an_empty_company_title_or_info_is_stored_as_one_blank_and_an_empty_date_stays_empty() {
        const QString path = file(image(10));
        id3->NewCompany.clear();
        id3->NewTitle.clear();
        id3->NewInfo.clear();
        id3->NewDate.clear();
        id3->AppendRomTag(path);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), image(10) + "ID3TAG\xA7 \xA7 \xA7\xA7 \xA7"
                                                                     "10\xA7\r\n");
        QCOMPARE(id3->NewCompany, QStringLiteral(" "));
        QCOMPARE(id3->NewDate, QString());
    }
    void appending_ignores_existing_tags_and_the_first_in_the_window_is_shown() {
        const QString path = file(image(3000));
        fillNew("First");
        id3->AppendRomTag(path);
        fillNew("Second");
        id3->AppendRomTag(path);
        id3->ReadRomTag(path, panel);
        QCOMPARE(panel.company, QStringLiteral("First"));
    }
    void reading_a_written_tag_gives_the_values() {
        const QString path = file(image(1500000));
        fillNew();
        id3->AppendRomTag(path);
        id3->ReadRomTag(path, panel);
        QVERIFY(panel.tagged);
        QCOMPARE(panel.title, QStringLiteral("Title"));
        QCOMPARE(panel.company, QStringLiteral("Acme"));
        QCOMPARE(panel.date, QStringLiteral("21/11/26"));
        QCOMPARE(panel.info, QStringLiteral("Info"));
        QCOMPARE(panel.format, QStringLiteral("GameBoy [1500KB]"));
        QCOMPARE(id3->RomTag.Extension, QStringLiteral(".gb"));
    }
    void a_marker_anywhere_in_the_file_is_a_tag_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("has");
        const QByteArray marker = TagLine::marker;
        QTest::newRow("at the start") << marker + image(5000) << true;
        QTest::newRow("at the end") << image(5000) + marker << true;
        QTest::newRow("in the middle") << image(2500) + marker + image(2500) << true;
        QTest::newRow("alone") << marker << true;
        for (qsizetype after = 1010; after < 1030; ++after)
            QTest::addRow("%d bytes before the end", int(after))
                << image(3000) + marker + image(after) << true;
        QTest::newRow("none") << image(5000) << false;
        QTest::newRow("empty") << QByteArray() << false;
        QTest::newRow("without its end") << image(5000) + marker.chopped(1) << false;
        QTest::newRow("in lower case") << image(3000) + marker.toLower() + image(10) << false;
    }
    void a_marker_anywhere_in_the_file_is_a_tag() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, has);
        QCOMPARE(id3->HasRomTag(file(bytes)), has);
        QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes);
    }
    void a_2047_byte_file_with_a_valid_tag_appears_untagged_but_has_one() {
        const QByteArray tag = tagLine("1000");
        const QString path = file(image(2047 - tag.size()) + tag);
        id3->ReadRomTag(path, panel);
        QVERIFY(!panel.tagged);
        QCOMPARE(panel.title, QStringLiteral("globals/nodisp"));
        QVERIFY(id3->HasRomTag(path));
    }
    void a_2048_byte_file_is_read_through_the_window_from_offset_1023() {
        // The marker begins exactly where the window does, and then one byte too early.
        const QByteArray tag = tagLine("1000");
        const QByteArray padded = tag.chopped(2) + QByteArray(1023 - tag.size() + 2, 'x') + "\r\n";
        const QString at = file(image(1023) + padded);
        QCOMPARE(folder.read(QStringLiteral("game.gb")).size(), 2048);
        id3->ReadRomTag(at, panel);
        QVERIFY(panel.tagged);
        const QString early = file(image(1022) + padded + "y");
        QCOMPARE(folder.read(QStringLiteral("game.gb")).size(), 2048);
        id3->ReadRomTag(early, panel);
        QVERIFY(!panel.tagged);
    }
    void the_last_byte_of_the_file_is_never_read() {
        // The separator after the size is the last byte: the window lacks it, which does no harm.
        const QString path = file(image(3000) + tagLine("12345").chopped(2));
        id3->ReadRomTag(path, panel);
        QCOMPARE(id3->RomTag.SizeKB, 12);
        // The last digit of the size is the last byte, so the number lacks it.
        const QString cut = file(image(3000) + tagLine("12345").chopped(3));
        id3->ReadRomTag(cut, panel);
        QCOMPARE(id3->RomTag.SizeKB, 1);
    }
    void a_second_marker_ends_the_tag_text() {
        const QString path = file(image(3000) +
                                  "ID3TAG\xA7"
                                  "a\xA7"
                                  "b\xA7"
                                  "c" +
                                  tagLine("5000"));
        id3->ReadRomTag(path, panel);
        QVERIFY(!panel.tagged);
    }
    void size_rules_data() {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("format");
        const QString previous = QStringLiteral("Former");
        QTest::newRow("1,024,000 bytes keep the previous format") << qint64(1024000) << previous;
        QTest::newRow("1,024,999 bytes are still 1024 KB") << qint64(1024999) << previous;
        QTest::newRow("1,025,000 bytes are GameBoy") << qint64(1025000) << QStringLiteral("GameBoy");
        QTest::newRow("2,047,999 bytes are GameBoy") << qint64(2047999) << QStringLiteral("GameBoy");
        QTest::newRow("2,048,000 bytes keep the previous format") << qint64(2048000) << previous;
        QTest::newRow("2,049,000 bytes are Color") << qint64(2049000) << QStringLiteral("GameBoy Color");
        QTest::newRow("4,095,999 bytes are Color") << qint64(4095999) << QStringLiteral("GameBoy Color");
        QTest::newRow("4,096,000 bytes keep the previous format") << qint64(4096000) << previous;
        QTest::newRow("4,097,000 bytes are Advance") << qint64(4097000) << QStringLiteral("GameBoy Advance");
        QTest::newRow("nothing keeps the previous format") << qint64(0) << previous;
    }
    void size_rules() {
        QFETCH(qint64, bytes);
        QFETCH(QString, format);
        const QString path = file("");
        QFile sparse(path);
        QVERIFY(sparse.resize(bytes));
        id3->RomTag.Format = QStringLiteral("Former");
        id3->ReadRomTag(path, panel);
        QCOMPARE(id3->RomTag.Format, format);
        QCOMPARE(panel.format, format + QStringLiteral(" [%1KB]").arg(bytes / 1000));
        if (format == QStringLiteral("Former")) {
            QCOMPARE(id3->RomTag.Extension, path.section(QLatin1Char('.'), 1, 1));
        }
    }
    void a_stored_size_is_rounded_half_to_even_and_that_of_an_untagged_file_down_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<int>("kilobytes");
        QTest::newRow("1500499") << QByteArray("1500499") << 1500;
        QTest::newRow("1500500") << QByteArray("1500500") << 1500;
        QTest::newRow("1500501") << QByteArray("1500501") << 1501;
        QTest::newRow("1501500") << QByteArray("1501500") << 1502;
    }
    void a_stored_size_is_rounded_half_to_even_and_that_of_an_untagged_file_down() {
        QFETCH(QByteArray, stored);
        QFETCH(int, kilobytes);
        id3->ReadRomTag(file(image(3000) + tagLine(stored)), panel);
        QCOMPARE(id3->RomTag.SizeKB, kilobytes);
        id3->ReadRomTag(file(image(1500999)), panel);
        QCOMPARE(panel.format, QStringLiteral("GameBoy [1500KB]"));
    }
    void a_file_whose_size_is_no_number_appears_untagged_data() {
        QTest::addColumn<QByteArray>("stored");
        for (const char* text : {"", "abc", "12x", "inf", "nan", "99999999999999999"}) {
            QTest::newRow(text) << QByteArray(text);
        }
    }
    void a_file_whose_size_is_no_number_appears_untagged() {
        QFETCH(QByteArray, stored);
        id3->ReadRomTag(file(image(3000) + tagLine(stored)), panel);
        QVERIFY(!panel.tagged);
        QCOMPARE(id3->RomTag.Company, QString());
        QCOMPARE(panel.title, QStringLiteral("globals/nodisp"));
    }
    void only_a_lower_case_zip_is_an_archive() {
        id3->ReadRomTag(file(image(100), QStringLiteral("PACK.zip")), panel);
        QCOMPARE(id3->RomTag.Format, QStringLiteral("Formato .ZIP"));
        QCOMPARE(id3->RomTag.Extension, QStringLiteral(".zip"));
        id3->RomTag.Format = QStringLiteral("Former");
        id3->ReadRomTag(file(image(100), QStringLiteral("GAME.ZIP")), panel);
        QCOMPARE(id3->RomTag.Format, QStringLiteral("Former"));
        QCOMPARE(id3->RomTag.Extension, QStringLiteral("ZIP"));
    }
    void a_tagged_archive_is_an_archive_and_an_untagged_one_is_judged_by_its_size() {
        id3->ReadRomTag(file(image(3000) + tagLine("1500000"), QStringLiteral("a.zip")), panel);
        QCOMPARE(id3->RomTag.Format, QStringLiteral("Formato .ZIP"));
        id3->ReadRomTag(file(image(1500000), QStringLiteral("a.zip")), panel);
        QCOMPARE(id3->RomTag.Format, QStringLiteral("GameBoy"));
    }
    void a_dot_in_a_folder_name_replaces_the_extension() {
        id3->ReadRomTag(file(image(100), QStringLiteral("games.zip/plain.gb")), panel);
        QCOMPARE(id3->RomTag.Extension, QStringLiteral("zip/plain"));
    }
    void the_shifted_form_is_read_with_the_marker_as_company() {
        id3->ReadRomTag(file(image(3000) + tagLine("1500000", "V\xF6\xA7R\xE4N")), panel);
        QCOMPARE(panel.company, QStringLiteral("Vö§RäN"));
        QCOMPARE(panel.title, QStringLiteral("Title"));
        QCOMPARE(id3->RomTag.SizeKB, 1500);
    }
    void a_tag_of_the_shifted_form_saved_from_the_panel_reads_as_the_shifted_form_again() {
        const QString path = file(image(3000) + tagLine("3000", "V\xF6\xA7R\xE4N"));
        id3->ReadRomTag(path, panel);
        fillNew();
        id3->NewCompany = panel.company;
        id3->SaveRomTag(path, [] {});
        id3->ReadRomTag(path, panel);
        QCOMPARE(panel.company, QStringLiteral("Vö§RäN"));
        QCOMPARE(panel.title, QStringLiteral("Title"));
        QVERIFY(folder.read(QStringLiteral("game.gb"))
                    .startsWith(image(3000) + "\r\nID3TAG\xA7V\xF6\xA7R\xE4N\xA7Title"));
    }
    void a_separator_inside_a_field_shifts_the_later_ones() {
        const QString path = file(image(3000));
        fillNew("Ac§me", "Title", "7000");
        id3->AppendRomTag(path);
        id3->ReadRomTag(path, panel);
        QCOMPARE(panel.company, QStringLiteral("Ac"));
        QCOMPARE(panel.title, QStringLiteral("me"));
        QCOMPARE(panel.info, QStringLiteral("21/11/26"));
        QCOMPARE(id3->RomTag.SizeKB, 7);
    }
    void a_tag_cut_at_any_byte_does_no_harm() {
        const QByteArray tag = tagLine("1500000");
        for (qsizetype length = 0; length <= tag.size(); ++length) {
            id3->ReadRomTag(file(image(3000) + tag.first(length)), panel);
            // Only the two bytes of the line end and the last separator may be missing.
            if (length >= tag.size() - 2) QVERIFY(panel.tagged);
            if (length < tag.size() - 9) QVERIFY2(!panel.tagged, QByteArray::number(length).constData());
        }
    }
    void files_of_every_small_length_are_untagged() {
        for (const qsizetype length : {0, 1, 1023, 1024, 2047, 2048, 2049}) {
            id3->ReadRomTag(file(image(length)), panel);
            QVERIFY(!panel.tagged);
            QCOMPARE(id3->RomTag.SizeKB, static_cast<qint32>(length / 1000));
        }
    }
    void a_missing_file_appears_untagged_and_empty() {
        id3->ReadRomTag(folder.path(QStringLiteral("gone.gb")), panel);
        QVERIFY(!panel.tagged);
        QCOMPARE(panel.format, QStringLiteral(" [0KB]"));
        QVERIFY(failureOf([&] { (void)id3->HasRomTag(folder.path(QStringLiteral("gone.gb"))); }).has_value());
        QVERIFY(!QFile::exists(folder.path(QStringLiteral("gone.gb"))));
    }
    void an_unreadable_file_appears_untagged() {
        const QString path = file(image(3000) + tagLine("3000"));
        chmod(QFile::encodeName(path).constData(), 0);
        {
            const OrdinaryUser user;
            id3->ReadRomTag(path, panel);
        }
        chmod(QFile::encodeName(path).constData(), 0644);
        QVERIFY(!panel.tagged);
    }
    void any_bytes_do_no_harm() {
        std::srand(7);
        for (int round = 0; round < 400; ++round) {
            QByteArray bytes(std::rand() % 4000, '\0');
            for (char& c : bytes) c = static_cast<char>(std::rand());
            for (int n = std::rand() % 3; n > 0 && !bytes.isEmpty(); --n) {
                bytes.insert(std::rand() % bytes.size(), std::rand() % 2 ? TagLine::marker
                                                                         : QByteArray("\xA7"
                                                                                      "12\xA7"));
            }
            const QString path = file(bytes);
            id3->ReadRomTag(path, panel);
            QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes);
            if (id3->HasRomTag(path)) failureOf([&] { ID3::StripRomTag(path); });
        }
    }
    void any_storable_text_survives_a_write_and_a_read() {
        std::srand(11);
        for (int round = 0; round < 300; ++round) {
            const auto text = [] {
                QByteArray bytes(1 + std::rand() % 120, '\0');
                for (char& c : bytes) {
                    do {
                        c = static_cast<char>(std::rand());
                    } while (c == TagLine::separator);
                }
                return CodePage1252::fromBytes(bytes);
            };
            const QString path = file(image(2100));
            id3->NewCompany = text();
            id3->NewTitle = text();
            id3->NewInfo = text();
            id3->NewDate = QStringLiteral("1.1.26");
            id3->AppendRomTag(path);
            id3->ReadRomTag(path, panel);
            QVERIFY(panel.tagged);
            QCOMPARE(panel.company, id3->NewCompany);
            QCOMPARE(panel.title, id3->NewTitle);
            QCOMPARE(panel.info, id3->NewInfo);
        }
    }
    void only_the_tail_of_a_64_mib_file_is_read() {
        const QString path = file("");
        QFile huge(path);
        QVERIFY(huge.resize(64 << 20));
        QVERIFY(huge.open(QIODevice::Append));
        huge.write(tagLine("67108864"));
        huge.close();
        id3->ReadRomTag(path, panel);
        QCOMPARE(panel.format, QStringLiteral("GameBoy Advance [67109KB]"));
    }
};

TORVANE_GUILESS_TEST(ID3Test)
#include "ID3Test.moc"

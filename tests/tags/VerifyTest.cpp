// SPDX-License-Identifier: MIT
// What verify finds in games, run as a user runs it.
#include "CartridgeImage.h"
#include "TagsProgram.h"
#include "support/Archive.h"
#include "support/FolderTree.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class VerifyTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const QByteArray& name, const QByteArray& bytes) const {
        program->folder.writeNative(name, bytes);
    }
    /// The lines that it prints, without their header.
    QByteArrayList found(const QByteArrayList& names) const {
        const ProgramRun run = program->runHere(QByteArrayList{"verify", "--tsv"} + names);
        QByteArrayList lines = run.output.split('\n');
        lines.removeLast();
        if (lines.isEmpty() || lines.takeFirst() != "file\twhat\twhere\texpected\tfound") return {"(header)"};
        const QByteArray count = QByteArray::number(lines.size());
        const QByteArray message =
            "torvane-tags: " + count + (lines.size() == 1 ? " finding\n" : " findings\n");
        if (run.errors != (lines.isEmpty() ? QByteArray() : message)) return {run.errors};
        if (run.status != (lines.isEmpty() ? 0 : 1)) return {"status " + QByteArray::number(run.status)};
        return lines;
    }
    /// What is found in a file of this name and content, without the name.
    QByteArrayList foundIn(const QByteArray& name, const QByteArray& bytes) const {
        write(name, bytes);
        QByteArrayList lines = found({name});
        for (QByteArray& line : lines) {
            if (line.startsWith(name + '\t')) line.remove(0, name.size() + 1);
        }
        return lines;
    }
    static QByteArray tag(const QByteArray& texts, const QByteArray& size) {
        return "ID3TAG\xA7" + texts + '\xA7' + size + "\xA7\r\n";
    }
    static QByteArray with(QByteArray image, int offset, const QByteArray& bytes) {
        return image.replace(offset, bytes.size(), bytes);
    }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    // Good games
    void a_good_game_has_no_findings_data() {
        QTest::addColumn<QByteArray>("after");
        QTest::newRow("untagged") << QByteArray();
        QTest::newRow("tagged") << tag("C\xA7T\xA7"
                                       "D\xA7I",
                                       "32768");
        QTest::newRow("saved three times") << QByteArray("\r\n\r\n") + tag("C\xA7T\xA7"
                                                                           "D\xA7I",
                                                                           "32772");
        QTest::newRow("saved 512 times") << QByteArray("\r\n").repeated(511) + tag("C\xA7T\xA7"
                                                                                   "D\xA7I",
                                                                                   "33790");
        QTest::newRow("tag removed") << QByteArray("\r\n");
    }
    void a_good_game_has_no_findings() {
        QFETCH(QByteArray, after);
        QCOMPARE(foundIn("a.gb", CartridgeImage::gameBoy() + after), QByteArrayList());
    }
    void it_looks_at_the_library_and_changes_nothing() {
        write("home/roms/a.gb", CartridgeImage::gameBoy());
        write("home/roms/b.gb", "");
        const FolderTree before = treeOf(program->folder.path().toStdString());
        QCOMPARE(found({}), (QByteArrayList{"b.gb\tno whole header\t\t336\t0",
                                            "b.gb\tsize that is no power of two\t\t\t0"}));
        QCOMPARE(treeOf(program->folder.path().toStdString()), before);
    }

    // Tags
    void a_tag_that_no_save_writes_is_found_data() {
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QByteArrayList>("lines");
        const QByteArray texts = "C\xA7T\xA7"
                                 "D\xA7I";
        const QByteArray good = tag(texts, "4096");
        // What is no tag, and what the Size does not keep, makes the image longer or shorter.
        const QByteArray noPower = "size that is no power of two\t\t\t";
        const auto add = [](const char* name, const QByteArray& after, const QByteArrayList& lines) {
            QTest::newRow(name) << after << lines;
        };
        add("wrong size", tag(texts, "4095"), {"size in the tag\t0x1000\t4096\t4095", noPower + "4095"});
        add("size with a sign", tag(texts, "+4096"), {"size in the tag\t0x1000\t4096\t+4096"});
        add("no number", tag(texts, "caf\xE9"),
            {"size in the tag\t0x1000\t4096\tcaf\xC3\xA9", noPower + "4118"});
        add("a separator too much",
            tag("C\xA7T\xA7"
                "D\xA7I\xA7",
                "4096"),
            {"pieces of the tag\t0x1000\t6\t7", "size in the tag\t0x1000\t4096\t", noPower + "4119"});
        add("a piece too few",
            tag("C\xA7T\xA7"
                "D",
                "4096"),
            {"pieces of the tag\t0x1000\t6\t5", "size in the tag\t0x1000\t4096\t\\r\\n", noPower + "4116"});
        add("nothing after the marker", "ID3TAG\xA7\r\n",
            {"pieces of the tag\t0x1000\t6\t1", noPower + "4105"});
        add("LF alone", good.chopped(2) + '\n', {"line end of the tag\t0x1000\t0D 0A\t0A"});
        add("no line end", good.chopped(2) + ' ', {"line end of the tag\t0x1000\t0D 0A\t20"});
        add("bytes after it", good + "x", {"line end of the tag\t0x1000\t0D 0A\t0D 0A 78"});
        add("two tags", good + good, {"more than one tag\t0x1016\t1\t2"});
        add("shifted form",
            tag("V\xF6\xA7R\xE4N\xA7T\xA7"
                "D\xA7I",
                "4096"),
            {"shifted form of tag\t0x1000\t\tV\xC3\xB6\xC2\xA7R\xC3\xA4N"});
        add("shifted form, cut off", "ID3TAG\xA7V\xF6\xA7R\xE4N",
            {"shifted form of tag\t0x1000\t\tV\xC3\xB6\xC2\xA7R\xC3\xA4N", "pieces of the tag\t0x1000\t6\t1",
             noPower + "4109"});
        add("no title",
            tag("C\xA7\xA7"
                "D\xA7I",
                "4096"),
            {"empty text in the tag\t0x1000\t\t"});
        add("a line break",
            tag("C\xA7T\nT\xA7"
                "D\xA7I",
                "4096"),
            {"control character in the tag\t0x1000\t\tT\\nT"});
        add("too long",
            tag("C\xA7T\xA7"
                "D\xA7" +
                    QByteArray(1100, 'i'),
                "4096"),
            {"tag that is not seen\t0x1000\t\t"});
        add("far from the end", good + QByteArray(2000, 'x'), {"tag that is not seen\t0x1000\t\t"});
    }
    void a_tag_that_no_save_writes_is_found() {
        QFETCH(QByteArray, after);
        QTEST(foundIn("a.bin", QByteArray(4096, 'r') + after), "lines");
    }
    void a_zero_byte_is_a_control_character() {
        const QByteArray text("T\0", 2);
        QCOMPARE(foundIn("a.bin", taggedGame(text)),
                 QByteArrayList{"control character in the tag\t0x1000\t\tT\\0"});
    }
    void a_tag_in_a_small_file_is_not_seen() {
        QCOMPARE(foundIn("a.bin", QByteArray(1024, 'r') + tag("C\xA7T\xA7"
                                                              "D\xA7I",
                                                              "1024")),
                 QByteArrayList{"tag that is not seen\t0x400\t\t"});
    }
    void a_marker_in_the_image_is_named_and_the_tag_at_the_end_is_checked() {
        QCOMPARE(foundIn("a.bin", with(QByteArray(8192, 'r'), 50, "ID3TAG\xA7") + tag("C\xA7T\xA7"
                                                                                      "D\xA7I",
                                                                                      "1")),
                 (QByteArrayList{"more than one tag\t0x32\t1\t2", "size in the tag\t0x2000\t8192\t1"}));
    }
    void markers_across_blocks_are_found() {
        const int block = 1 << 20;
        for (int shift = 0; shift < 8; ++shift) {
            const QByteArray image = with(QByteArray(2 * block, 'r'), block - shift, "ID3TAG\xA7");
            const QByteArray place = "0x" + QByteArray::number(block - shift, 16).toUpper();
            QCOMPARE(foundIn("a.bin", image).value(0), "tag that is not seen\t" + place + "\t\t");
        }
    }

    // Headers
    void a_wrong_byte_in_a_header_is_found_data() {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QByteArrayList>("starts");
        const QByteArray good = CartridgeImage::gameBoy();
        const auto finished = CartridgeImage::finished;
        const auto add = [](const char* name, const QByteArray& image, const QByteArrayList& starts) {
            QTest::newRow(name) << image << starts;
        };
        add("start", finished(with(good, 0x100, QByteArray(4, '\xFF'))), {"start\t0x100\t\tFF FF FF FF"});
        add("jump at once", finished(with(good, 0x100, "\xC3\x50\x01")), {});
        add("relative jump", finished(with(good, 0x100, "\x18\x60")), {});
        add("first of the logo", finished(with(good, 0x104, "\xCF")), {"logo (SHA-256)\t0x104\tdaf4cabd"});
        add("last of the logo", finished(with(good, 0x133, "\x3F")), {"logo (SHA-256)\t0x104\tdaf4cabd"});
        add("last of the logo, Color only", finished(with(with(good, 0x133, "\x3F"), 0x143, "\xC0")), {});
        add("first of the logo, Color only", finished(with(with(good, 0x104, "\xCF"), 0x143, "\xC0")),
            {"logo (SHA-256)\t0x104\tbb66a9cb"});
        add("last of the logo, both", finished(with(with(good, 0x133, "\x3F"), 0x143, "\x80")),
            {"logo (SHA-256)\t0x104\tdaf4cabd"});
        add("size", finished(with(good, 0x148, "\x01")), {"size in the header\t0x148\t32768\t65536"});
        add("unknown size", finished(with(good, 0x148, "\x09")), {"size in the header\t0x148\t\t09"});
        const quint8 sum = static_cast<quint8>(good[0x14D]);
        const QByteArray expected = QByteArray::number(sum, 16).toUpper().rightJustified(2, '0');
        add("checksums", with(good, 0x14D, QByteArray(1, static_cast<char>(sum + 1))),
            {"checksum of the header\t0x14D\t" + expected, "checksum of the image\t0x14E\t"});
        add("a byte of the game", with(good, 0x7FFF, "\x01"), {"checksum of the image\t0x14E\t"});
    }
    void a_wrong_byte_in_a_header_is_found() {
        QFETCH(QByteArray, image);
        QFETCH(QByteArrayList, starts);
        const QByteArrayList lines = foundIn("a.gbc", image);
        QVERIFY2(lines.size() == starts.size(), lines.join('\n').constData());
        for (int i = 0; i < lines.size(); ++i) QVERIFY2(lines[i].startsWith(starts[i]), lines[i].constData());
    }
    void a_game_of_the_largest_size_is_good() {
        const QByteArray image = CartridgeImage::gameBoy() + QByteArray((8 << 20) - 32768, '\0');
        QCOMPARE(foundIn("a.gbc", CartridgeImage::finished(with(image, 0x148, "\x08"))), QByteArrayList());
    }
    void a_header_of_the_advance_is_checked_data() {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QByteArrayList>("lines");
        const QByteArray good = CartridgeImage::advance();
        QTest::newRow("good") << good << QByteArrayList();
        QTest::newRow("start") << with(good, 3, "\xE1") << QByteArrayList{"start\t0x3\tEA\tE1"};
        QTest::newRow("fixed byte") << with(good, 0xB2, "\x95")
                                    << QByteArrayList{"fixed byte\t0xB2\t96\t95",
                                                      "checksum of the header\t0xBD\tC6\tC5"};
    }
    void a_header_of_the_advance_is_checked() {
        QFETCH(QByteArray, image);
        QByteArrayList lines = foundIn("a.gba", image);
        // No tool at hand makes that logo.
        const bool hasLogo =
            lines.removeIf([](const QByteArray& line) { return line.startsWith("logo "); }) == 1;
        QVERIFY(hasLogo);
        QTEST(lines, "lines");
    }
    void bits_of_the_logo_with_other_meanings_do_not_count() {
        const auto logoLine = [&](const QByteArray& image) { return foundIn("a.gba", image).value(0); };
        const QByteArray good = CartridgeImage::advance();
        QCOMPARE(logoLine(with(good, 0x9C, "\x84")), logoLine(good));
        QCOMPARE(logoLine(with(good, 0x9E, "\x03")), logoLine(good));
        QVERIFY(logoLine(with(good, 0x9C, "\x01")) != logoLine(good));
        QVERIFY(logoLine(with(good, 0x9E, "\x04")) != logoLine(good));
    }
    void half_a_header_is_found() {
        const QByteArray game = CartridgeImage::gameBoy();
        QCOMPARE(foundIn("a.gb", game.first(335)).value(0), QByteArray("no whole header\t\t336\t335"));
        QVERIFY(foundIn("a.gb", game.first(336)).value(0) != "no whole header\t\t336\t336");
        QCOMPARE(foundIn("b.agb", game.first(191)).value(0), QByteArray("no whole header\t\t192\t191"));
    }
    void a_file_whose_name_tells_no_console_has_no_header() {
        QCOMPARE(foundIn("a.bin", QByteArray(256, 'x')), QByteArrayList());
    }
    void it_takes_the_same_image_as_hash_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray texts = "C\xA7T\xA7"
                                 "D\xA7I";
        const auto add = [](const char* name, const QByteArray& bytes) { QTest::newRow(name) << bytes; };
        const auto image = [](int size) { return QByteArray(size, 'r'); };
        add("untagged", image(4096));
        add("tagged", image(4096) + tag(texts, "4096"));
        add("cleared, of no power of two", image(3 << 10) + "\r\n");
        add("saved, of no power of two",
            image(3 << 10) + QByteArray("\r\n").repeated(40) + tag(texts, "3152"));
        add("saved, of a power of two below 1 KiB", image(512) + "\r\n");
        add("of no whole KiB, with line ends", image(3000) + "\r\n\r\n" + tag(texts, "3004"));
        add("saved 600 times", image(4096) + QByteArray("\r\n").repeated(600));
        add("a size below the tag", image(4096) + tag(texts, "3000"));
        add("a size above the tag", image(3000) + tag(texts, "9999"));
        add("a size that is no number", image(4096) + tag(texts, "many"));
        add("a tag far from the end", image(4096) + tag(texts, "4096") + image(20000));
        add("a tag that is not seen", image(4096) + tag(texts, "4096") + image(3000));
        add("a marker in the image", image(50) + "ID3TAG\xA7" + image(5000) + tag(texts, "5057"));
    }
    void it_takes_the_same_image_as_hash() {
        QFETCH(QByteArray, bytes);
        const QByteArrayList lines = foundIn("a.bin", bytes);
        QByteArray verified;
        for (const QByteArray& line : lines) {
            if (line.startsWith("size that is no power of two\t")) verified = line.split('\t').back();
        }
        const ProgramRun run = program->runHere({"hash", "--tsv", "--only=crc32", "a.bin"});
        const QByteArray hashed = run.output.split('\n').value(1).split('\t').value(2);
        QVERIFY(hashed.toULongLong() > 0);
        QCOMPARE(verified, qPopulationCount(hashed.toULongLong()) == 1 ? QByteArray() : hashed);
    }
    void a_size_that_is_no_power_of_two_is_found_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("size");
        QTest::newRow("a byte less") << QByteArray(4095, 'x') << QByteArray("4095");
        QTest::newRow("half a line end more") << QByteArray(4096, 'x') + '\n' << QByteArray("4097");
        QTest::newRow("other bytes") << QByteArray(4096, 'x') + "\r\n\n\n" << QByteArray("4100");
    }
    void a_size_that_is_no_power_of_two_is_found() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, size);
        QCOMPARE(foundIn("a.bin", bytes), QByteArrayList{"size that is no power of two\t\t\t" + size});
    }

    // Games twice
    void the_same_image_under_two_names_is_found_whatever_the_tags_are() {
        const QByteArray game = CartridgeImage::gameBoy();
        write("a.gb", game + tag("C\xA7T\xA7"
                                 "D\xA7I",
                                 "32768"));
        write("b.gb", CartridgeImage::gameBoy('b'));
        write("c.gb", game + "\r\n");
        write("d.gb", game);
        QCOMPARE(found({"a.gb", "b.gb", "c.gb", "d.gb"}),
                 (QByteArrayList{"c.gb\tsame image as another\t\t\ta.gb",
                                 "d.gb\tsame image as another\t\t\ta.gb"}));
        QCOMPARE(found({"d.gb", "d.gb"}), QByteArrayList());
    }

    void images_that_differ_in_the_middle_alone_are_two() {
        write("a.bin", QByteArray(8192, 'x'));
        write("b.bin", with(QByteArray(8192, 'x'), 4096, "y"));
        QCOMPARE(found({"a.bin", "b.bin"}), QByteArrayList());
    }
    void files_without_an_image_are_not_the_same() {
        write("a.bin", "");
        write("b.bin", "");
        const QByteArray size = "size that is no power of two\t\t\t0";
        QCOMPARE(found({"a.bin", "b.bin"}), (QByteArrayList{"a.bin\t" + size, "b.bin\t" + size}));
    }
    void an_archive_that_is_there_twice_is_found() {
        for (const char* name : {"a.zip", "b.zip"})
            writeArchive(program->folder.path(QString::fromLatin1(name)), {{u"a.gb"_s, "x"}});
        write("b.zip", program->folder.read(u"a.zip"_s));
        QCOMPARE(found({"a.zip", "b.zip"}), QByteArrayList{"b.zip\tsame image as another\t\t\ta.zip"});
    }

    // Archives
    void an_archive_is_looked_into_without_unpacking() {
        const QString path = program->folder.path(u"a.zip"_s);
        writeArchive(path, {{u"a.gb"_s, "x"}, {u"notes.txt"_s, "x"}});
        QCOMPARE(found({"a.zip"}), QByteArrayList());
        writeArchive(path, {{u"Game/a.gb"_s, "x"}, {u"Game/A.gb"_s, "y"}});
        QCOMPARE(found({"a.zip"}), QByteArrayList{"a.zip\ttwo members of a name\tGame/A.gb\t\t"});
        writeArchive(path, {{u"a.gb"_s, "x"}, {u"b/b.gb"_s, "y"}, {u"../c.gb"_s, "z"}});
        QCOMPARE(found({"a.zip"}), (QByteArrayList{"a.zip\tmember that is not unpacked\tb/b.gb\t\t",
                                                   "a.zip\tmember that is not unpacked\t../c.gb\t\t"}));
        writeArchive(path, {{u"notes.txt"_s, "x"}});
        QCOMPARE(found({"a.zip"}), QByteArrayList{"a.zip\tno game in the archive\t\t\t"});
        for (const QByteArray& bytes : {QByteArray(), QByteArray("PK"), QByteArray(5000, 'z')})
            QCOMPARE(foundIn("b.zip", bytes), QByteArrayList{"archive that can't be opened\t\t\t"});
    }

    // Bad input
    void one_bad_file_does_not_stop_the_others() {
        write("a.bin", QByteArray(3, 'x'));
        const ProgramRun run = program->runHere({"verify", "--json", "no.gb", "home", "a.bin"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: no.gb: it doesn’t exist\ntorvane-tags: 1 finding\n"));
        QCOMPARE(run.output, QByteArray("{\"file\":\"a.bin\",\"what\":\"size that is no power of two\","
                                        "\"where\":null,\"expected\":null,\"found\":3}\n"));
    }
    void a_name_of_any_bytes_is_printed_so_that_it_survives() {
        write("\xFF\n.bin", QByteArray(3, 'x'));
        QCOMPARE(found({"\xFF\n.bin"}), QByteArrayList{"\xFF\\n.bin\tsize that is no power of two\t\t\t3"});
    }
    void what_can_not_be_read_is_reported() {
        write("a.gb", "x");
        program->folder.setMode(u"a.gb"_s, 0);
        program->prepare = [] {
            if (geteuid() == 0 && setresuid(65534, 65534, 65534) != 0) _exit(97);
        };
        const ProgramRun run = program->runHere({"verify", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: a.gb: you don’t have permission to do that\n"));
    }
};

TORVANE_GUILESS_TEST(VerifyTest)
#include "VerifyTest.moc"

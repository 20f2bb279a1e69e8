// SPDX-License-Identifier: MIT
// hash, run as a user runs it, and compared with sha1sum and its like.
#include "TagsProgram.h"
#include "support/Archive.h"
#include "support/CommandOutput.h"
#include "support/TestMain.h"

#include <QCryptographicHash>

using namespace torvane;
using namespace Qt::StringLiterals;

class HashTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TagsProgram> program;

    void write(const char* name, const QByteArray& bytes) const { program->folder.writeNative(name, bytes); }
    static QByteArray sha1(const QByteArray& bytes) {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
    }
    /// The lines after the header.
    QByteArrayList hash(const QByteArrayList& arguments, int status = 0) const {
        const ProgramRun run = program->runHere(QByteArrayList{"hash", "--tsv", "--only=sha1"} + arguments);
        if (run.status != status) qWarning("%s", run.errors.constData());
        QByteArrayList lines = run.output.split('\n');
        return run.status == status ? lines.mid(1, lines.size() - 2) : QByteArrayList{"wrong status"};
    }

private slots:
    void init() { program = std::make_unique<TagsProgram>(); }

    void all_sums_are_those_of_the_usual_programs() {
        const QByteArray image(40960, 'r');
        write("a.gb", image);
        const ProgramRun run = program->runHere({"hash", "--tsv", "a.gb"});
        QCOMPARE(run.status, 0);
        const QByteArray crc =
            outputOf({"python3", "-c", "import zlib; print('%08x' % zlib.crc32(b'r' * 40960), end='')"});
        const auto sum = [&](const char* command) { return outputOf({command}, image).split(' ').front(); };
        QCOMPARE(run.output, "file\tmember\tsize\tcrc32\tmd5\tsha1\tsha256\na.gb\t\t40960\t" + crc + '\t' +
                                 sum("md5sum") + '\t' + sum("sha1sum") + '\t' + sum("sha256sum") + '\n');
    }
    void saved_and_cleared_games_have_the_sum_of_the_original() {
        const QByteArray image(32768, '\xFE');
        write("a.gb", image);
        const QByteArrayList expected{"a.gb\t\t32768\t" + sha1(image)};
        QCOMPARE(hash({"a.gb"}), expected);
        for (const char* title : {"A", "B", "C"}) {
            QCOMPARE(program->runHere({"set", "a.gb", "--title", title, "--company=C", "--info=I"}).status,
                     0);
            QCOMPARE(hash({"a.gb"}), expected);
        }
        QCOMPARE(program->runHere({"clear", "a.gb"}).status, 0);
        QVERIFY(program->folder.read(u"a.gb"_s) != image);
        QCOMPARE(hash({"a.gb"}), expected);
    }
    void only_some_sums_may_be_wanted() {
        write("a.gb", "x");
        const QByteArray output = program->runHere({"hash", "--tsv", "--only", "sha1,crc32", "a.gb"}).output;
        QCOMPARE(output, "file\tmember\tsize\tcrc32\tsha1\na.gb\t\t1\t8cdc1683\t" + sha1("x") + '\n');
        for (const char* bad : {"sha2", "sha1,", ",", "SHA1"})
            QCOMPARE(program->runHere({"hash", "--only", bad, "a.gb"}).status, 2);
    }
    void rows_come_in_the_order_of_the_operands() {
        QByteArrayList names;
        for (int i = 0; i < 200; ++i) {
            names += "home/roms/" + QByteArray::number(1000 + i) + ".gb";
            write(names.back().constData(), QByteArray(i % 7 == 0 ? 300000 : 10, 'x'));
        }
        const auto namesOf = [](const QByteArrayList& lines) {
            QByteArrayList found;
            for (const QByteArray& line : lines) found += line.split('\t').front();
            return found;
        };
        QCOMPARE(namesOf(hash({"home/roms"})), names);
        std::reverse(names.begin(), names.end());
        QCOMPARE(namesOf(hash(names)), names);
        QCOMPARE(hash({}).size(), 200);
    }
    void json_has_any_byte_of_a_name() {
        write("a\xFF\n.gb", "x");
        const QByteArray output = program->runHere({"hash", "--json", "--only=crc32", "a\xFF\n.gb"}).output;
        QCOMPARE(output, QByteArray(R"({"file":"a\udcff\u000a.gb","member":null,"size":1,"crc32":"8cdc1683"})"
                                    "\n"));
    }
    void one_bad_file_does_not_stop_the_others() {
        write("a.gb", "x");
        write("bad.zip", "PK\3\4 no archive");
        write("shut.gb", "x");
        QVERIFY(mkfifo(program->folder.native("pipe.gb").constData(), 0600) == 0);
        const ProgramRun run = program->runHere({"hash", "--tsv", "bad.zip", "pipe.gb", "no.gb", "a.gb"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.output.count('\n'), 2);
        for (const char* name : {"bad.zip", "pipe.gb", "no.gb"})
            QVERIFY2(run.errors.contains(QByteArray("torvane-tags: ") + name + ": "), run.errors);
    }

    // Archives
    void an_archive_that_can_not_be_opened_is_called_so_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("broken") << QByteArray("PK\3\4 no archive");
    }
    void an_archive_that_can_not_be_opened_is_called_so() {
        QFETCH(QByteArray, bytes);
        write("bad.zip", bytes);
        write("known.dat", "clrmamepro ( name n )\ngame ( name g rom ( name r size 1 crc 00000000 ) )\n");
        for (const QByteArrayList& command :
             {QByteArrayList{"hash"}, QByteArrayList{"identify", "--dat=known.dat"}}) {
            const ProgramRun run = program->runHere(command + QByteArrayList{"bad.zip"});
            QCOMPARE(run.errors.split('\n').front(), "torvane-tags: bad.zip: the archive can't be opened");
            QCOMPARE(run.status, 1);
        }
    }
    void games_in_archives_are_summed_up_without_their_tags() {
        const QByteArray image(32768, 'z');
        const QByteArray tagged = taggedGame("T", "C", "I", "D", 32768);
        const QByteArray saved = taggedGame("T", "C", "I", "D", 32770).replace(32768, 2, "\r\n");
        writeArchive(program->folder.path(u"a.zip"_s), {{u"plain.gb"_s, image},
                                                        {u"tagged.gbc"_s, tagged},
                                                        {u"saved.gbc"_s, saved},
                                                        {u"large.gba"_s, QByteArray(2 << 20, 'l')},
                                                        {u"readme.txt"_s, "x"},
                                                        {u"sub/below.gb"_s, "x"},
                                                        {u"../out.gb"_s, "x"}});
        QCOMPARE(hash({"a.zip"}),
                 (QByteArrayList{"a.zip\tplain.gb\t32768\t" + sha1(image),
                                 "a.zip\ttagged.gbc\t32768\t" + sha1(QByteArray(32768, 'r')),
                                 "a.zip\tsaved.gbc\t32768\t" + sha1(QByteArray(32768, 'r')),
                                 "a.zip\tlarge.gba\t2097152\t" + sha1(QByteArray(2 << 20, 'l'))}));
    }
    void games_in_the_one_folder_of_an_archive_count() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"Game/a.gb"_s, "x"}});
        QCOMPARE(hash({"a.zip"}), QByteArrayList{"a.zip\ta.gb\t1\t" + sha1("x")});
    }
    void a_size_far_below_the_tag_is_taken_in_archives_too() {
        QByteArray game = taggedGame("T", "C", "I", "D", 1 << 20);
        game.replace("\xA7"
                     "1048576\xA7",
                     "\xA7"
                     "2048\xA7");
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, game}});
        write("a.gb", game);
        const QByteArray end = "\t2048\t" + sha1(QByteArray(2048, 'r'));
        QCOMPARE(hash({"a.zip", "a.gb"}), (QByteArrayList{"a.zip\ta.gb" + end, "a.gb\t" + end}));
    }
    void damaged_members_are_reported_by_name() {
        writeArchive(program->folder.path(u"a.zip"_s), {{u"a.gb"_s, "content"}, {u"b.gb"_s, "x"}});
        QByteArray bytes = program->folder.read(u"a.zip"_s);
        bytes.replace("content", "c0ntent");
        write("a.zip", bytes);
        const ProgramRun run = program->runHere({"hash", "--tsv", "a.zip"});
        QCOMPARE(run.status, 1);
        QCOMPARE(run.errors, QByteArray("torvane-tags: a.zip: a.gb: it is damaged\n"));
        QVERIFY(run.output.contains("a.zip\tb.gb\t1\t"));
    }

    // Endings
    void a_closed_pipe_ends_it_quietly() {
        for (int i = 0; i < 900; ++i) write(("home/roms/" + QByteArray::number(i) + ".gb").constData(), "x");
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        close(ends[0]);
        const MemoryFile errors;
        QCOMPARE(TagsProgram::endOf(
                     program->start({"--folder", "home", "hash", "--json"}, ends[1], errors.descriptor())),
                 1);
        QCOMPARE(errors.content(), QByteArray());
        close(ends[1]);
    }
    void a_signal_ends_it_after_the_files_at_work() {
        for (int i = 0; i < 2000; ++i) write(("home/roms/" + QByteArray::number(i) + ".gb").constData(), "x");
        int ends[2];
        QCOMPARE(pipe(ends), 0);
        const pid_t child = program->start({"--folder", "home", "hash", "--json"}, ends[1], STDERR_FILENO);
        close(ends[1]);
        QByteArray output(1, '\0');
        QCOMPARE(read(ends[0], output.data(), 1), 1);
        kill(child, SIGINT);
        QByteArray some(65536, '\0');
        ssize_t got = 0;
        while ((got = read(ends[0], some.data(), 65536)) > 0) output += some.first(got);
        QCOMPARE(TagsProgram::endOf(child), 130);
        QVERIFY(output.endsWith("}\n"));
        QVERIFY(output.count('\n') < 2000);
        close(ends[0]);
    }
};

TORVANE_APPLESS_TEST(HashTest)
#include "HashTest.moc"

// SPDX-License-Identifier: MIT
// The version file: writing, reading, and the comparison of versions.
#include "settings/VersionFile.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class VersionFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;
    const VersionFile file{globals};

    QString read(const QByteArray& bytes) const {
        folder->write(u"data/version.dat"_s, bytes);
        return file.lastVersion();
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        folder->makeFolder(u"data"_s);
        globals.AppPath = folder->path();
        globals.setVersion(u"1.9.0"_s);
    }

    void a_body_is_stored_with_a_line_end() {
        file.write("[Torvane]\r\nLastVersion=2.0");
        QCOMPARE(folder->read(u"data/version.dat"_s), "[Torvane]\r\nLastVersion=2.0\r\n"_ba);
        file.write({});
        QCOMPARE(folder->read(u"data/version.dat"_s), "\r\n"_ba);
        QCOMPARE(folder->entries(u"data"_s), QStringList{u"version.dat"_s});
    }
    void a_failed_write_leaves_the_old_file() {
        file.write("old");
        const FullDisk full(4);
        QCOMPARE(failureOf([&] { file.write("[Torvane]\r\nLastVersion=2.0"); }), RuntimeFailure::diskFull);
        QCOMPARE(folder->read(u"data/version.dat"_s), "old\r\n"_ba);
    }

    void the_version_is_read_from_its_section_and_key_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("version");
        const auto row = [](const char* name, const QByteArray& bytes, const QString& version) {
            QTest::newRow(name) << bytes << version;
        };
        row("plain", "[Torvane]\r\nLastVersion=2.0\r\n", u"2.0"_s);
        row("other case, blanks and line ends", "\n [torvane]\n lastversion = 2.0 \n", u"2.0"_s);
        row("other sections around",
            "[A]\r\nLastVersion=1\r\n[Torvane]\r\nLastVersion=2\r\n[B]\r\nLastVersion=3\r\n", u"2"_s);
        row("empty", "[Torvane]\r\nLastVersion=\r\n", QString());
        row("no key", "[Torvane]\r\nVersion=2\r\n", QString());
        row("no section", "LastVersion=2\r\n", QString());
        row("nothing", "", QString());
        row("a page", "<html><body>404</body></html>", QString());
        row("binary", QByteArray("\0\xFF[\0\r=\n]\0", 9), QString());
        row("markup", "[Torvane]\nLastVersion=<b>9</b> %1 &amp;", u"<b>9</b> %1 &amp;"_s);
        row("letters of code page 1252", "[Torvane]\nLastVersion=2 \x96 \xF1", u"2 – ñ"_s);
    }
    void the_version_is_read_from_its_section_and_key() {
        QFETCH(QByteArray, bytes);
        QTEST(read(bytes), "version");
    }
    void a_version_of_1_mib_is_read_whole_and_shown_cut() {
        const QByteArray huge(1 << 20, '9');
        const QString version = read("[Torvane]\r\nLastVersion=" + huge + "\r\n");
        QCOMPARE(version.toLatin1(), huge);
        QVERIFY(VersionFile::longestBody > huge.size() + 30);
        QCOMPARE(VersionFile::shown(version), QString(40, u'9') + u'…');
        QCOMPARE(VersionFile::shown(QString(40, u'9')), QString(40, u'9'));
        QCOMPARE(VersionFile::shown(u"2.0"_s), u"2.0"_s);
    }
    void without_a_file_there_is_no_version() {
        QCOMPARE(file.lastVersion(), QString());
        folder->makeFolder(u"data/version.dat"_s);
        QCOMPARE(file.lastVersion(), QString());
    }

    void versions_compare_by_the_codes_of_their_characters_data() {
        QTest::addColumn<QString>("server");
        QTest::addColumn<bool>("isNews");
        QTest::newRow("the same") << u"1.9"_s << false;
        QTest::newRow("1.10 is lower than 1.9") << u"1.10"_s << false;
        QTest::newRow("higher") << u"2.0"_s << true;
        QTest::newRow("10 is higher than 1.9") << u"10"_s << true; // "0" comes after "."
        QTest::newRow("more of the same") << u"1.9.1"_s << true;
        QTest::newRow("less of the same") << u"1."_s << false;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("a letter") << u"a"_s << true;
        QTest::newRow("a capital") << u"V1"_s << true;
        QTest::newRow("a sign") << u"!"_s << false;
        QTest::newRow("markup") << u"<b>"_s << true;
    }
    void versions_compare_by_the_codes_of_their_characters() {
        QFETCH(QString, server);
        QTEST(file.isNews(server), "isNews");
    }
    void the_case_of_a_letter_counts() {
        globals.setVersion(u"1.1b"_s);
        QVERIFY(!file.isNews(u"1.1C"_s));
        QVERIFY(file.isNews(u"1.1c"_s));
    }
    void the_own_version_is_read_at_the_comparison() {
        QVERIFY(file.isNews(u"1.9.5"_s));
        globals.setVersion(u"3.0"_s);
        QVERIFY(!file.isNews(u"1.9.5"_s));
    }
    void the_file_in_the_tree_has_this_version() {
        QFile shared(QStringLiteral(TORVANE_TREE_DIR "/data/site/tv_version.txt"));
        QVERIFY(shared.open(QIODevice::ReadOnly));
        globals.setVersion(QStringLiteral(TORVANE_VERSION));
        QCOMPARE(read(shared.readAll()), globals.VersionText);
    }
    void the_longest_body_is_read_whole() {
        const QByteArray head = "[Torvane]\r\nLastVersion=2.0\r\n;";
        QCOMPARE(read(head + QByteArray(VersionFile::longestBody - head.size(), 'x')), u"2.0"_s);
    }
};

TORVANE_APPLESS_TEST(VersionFileTest)
#include "VersionFileTest.moc"

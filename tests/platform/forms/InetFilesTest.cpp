// SPDX-License-Identifier: MIT
// Downloads from file addresses, as a host that is a folder gives them.
#include "support/Failing.h"
#include "support/InetFixture.h"
#include "support/TestMain.h"

#include <sys/stat.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class InetFilesTest : public QObject {
    Q_OBJECT

    FakeWorld world;
    InetForm form{world.runtime};

    QString address(const QByteArray& name) const {
        return QString::fromLatin1("file://" + world.folder.native(name).toPercentEncoding("/?#%"));
    }
    Fetched from(const QByteArray& name) { return fetched(form.down, address(name)); }

private slots:
    void init() { form.down.setLimits(smallLimits); }

    void a_file_arrives_byte_for_byte_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("zero and more") << QByteArray("\0a\r\n\xA7\xFF\x1A", 7);
        QTest::newRow("exactly the limit") << QByteArray(1 << 20, 'x');
    }
    void a_file_arrives_byte_for_byte() {
        QFETCH(QByteArray, body);
        world.folder.write(u"data/site/online_db.txt"_s, body);
        const Fetched result = from("data/site/online_db.txt");
        QCOMPARE(result.failure, 0);
        QCOMPARE(result.body, body);
    }
    void any_name_of_a_file_can_be_asked_for_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("encoded");
        QTest::newRow("blank") << QByteArray("a b") << QByteArray("a%20b");
        QTest::newRow("blank as it is") << QByteArray("a b") << QByteArray("a b");
        QTest::newRow("per cent") << QByteArray("a%20b") << QByteArray("a%2520b");
        QTest::newRow("question mark") << QByteArray("a?b") << QByteArray("a%3Fb");
        QTest::newRow("hash") << QByteArray("a#b") << QByteArray("a%23b");
        QTest::newRow("not UTF-8") << QByteArray("a\xF1") << QByteArray("a%F1");
        QTest::newRow("UTF-8") << QByteArray("a\xC3\xB1") << QByteArray("a%C3%B1");
        QTest::newRow("UTF-8 as it is") << QByteArray("a\xC3\xB1") << QByteArray("a\xC3\xB1");
    }
    void any_name_of_a_file_can_be_asked_for() {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, encoded);
        const TestFolder folder;
        folder.writeNative(name, "body");
        const QByteArray whole = "file://" + folder.native(encoded);
        QCOMPARE(fetched(form.down, QString::fromUtf8(whole)).body, "body");
    }
    void a_query_or_a_fragment_is_no_part_of_the_name_data() {
        QTest::addColumn<QByteArray>("asked");
        QTest::newRow("query") << QByteArray("page.html?name=online_db&file=input_db");
        QTest::newRow("fragment") << QByteArray("page.html#top");
        QTest::newRow("both") << QByteArray("page.html?a=/b/c#d?e");
    }
    void a_query_or_a_fragment_is_no_part_of_the_name() {
        QFETCH(QByteArray, asked);
        world.folder.write(u"page.html"_s, "page");
        QCOMPARE(from(asked).body, "page");
    }
    void the_spellings_of_a_files_address_mean_the_same_data() {
        QTest::addColumn<QString>("start");
        for (const char* start : {"file://", "FILE://", "file://localhost", "file:"}) {
            QTest::newRow(start) << QString::fromLatin1(start);
        }
    }
    void the_spellings_of_a_files_address_mean_the_same() {
        QFETCH(QString, start);
        QCOMPARE(fetched(form.down, start + world.folder.write(u"page.html"_s, "page")).body, "page");
    }

    void what_is_no_file_that_can_be_read_is_a_failure_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("failure");
        QTest::newRow("missing") << QByteArray("missing") << int(RuntimeFailure::fileNotFound);
        QTest::newRow("missing folder") << QByteArray("none/missing") << int(RuntimeFailure::fileNotFound);
        QTest::newRow("below a file") << QByteArray("plain/x") << int(RuntimeFailure::pathNotFound);
        QTest::newRow("folder") << QByteArray("data") << int(RuntimeFailure::pathAccess);
        QTest::newRow("pipe") << QByteArray("pipe") << int(RuntimeFailure::pathAccess);
        QTest::newRow("link to a device") << QByteArray("device") << int(RuntimeFailure::pathAccess);
        QTest::newRow("link to nothing") << QByteArray("dead") << int(RuntimeFailure::fileNotFound);
        QTest::newRow("link to itself") << QByteArray("loop") << int(RuntimeFailure::pathAccess);
        QTest::newRow("unreadable") << QByteArray("secret") << int(RuntimeFailure::permissionDenied);
        QTest::newRow("too long") << QByteArray("long") << int(RuntimeFailure::deviceError);
    }
    void what_is_no_file_that_can_be_read_is_a_failure() {
        QFETCH(QByteArray, name);
        QFETCH(int, failure);
        world.folder.write(u"plain"_s, "x");
        world.folder.write(u"long"_s, QByteArray((1 << 20) + 1, 'x'));
        world.folder.write(u"secret"_s, "x");
        world.folder.setMode(u"secret"_s, 0);
        mkfifo(world.folder.native("pipe").constData(), 0644);
        const auto link = [&](const char* target, const char* from) {
            if (symlink(target, world.folder.native(from).constData()) != 0) QCOMPARE(errno, EEXIST);
        };
        link("/dev/zero", "device");
        link("nowhere", "dead");
        link("loop", "loop");
        const OrdinaryUser user;
        QCOMPARE(from(name).failure, failure);
    }
    void a_link_to_a_file_is_followed() {
        world.folder.write(u"target"_s, "body");
        QCOMPARE(symlink("target", world.folder.native("link").constData()), 0);
        QCOMPARE(from("link").body, "body");
    }
    void a_file_waits_for_nothing() {
        world.folder.write(u"page.html"_s, "page");
        bool hasServed = false;
        QTimer::singleShot(0, &form, [&] { hasServed = true; });
        QCOMPARE(from("page.html").body, "page");
        QVERIFY(!hasServed);
    }
};

TORVANE_TEST(InetFilesTest)
#include "InetFilesTest.moc"

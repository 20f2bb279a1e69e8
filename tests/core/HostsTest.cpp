// SPDX-License-Identifier: MIT
// Addresses of the servers: hosts on the network, hosts that are folders, and files that name neither.
#include "core/Hosts.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QUrl>

using namespace torvane;

class HostsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;

    QString address(Hosts::Host host = Hosts::Host::update, const char* path = "/url.dat") const {
        return Hosts(globals).address(host, QString::fromLatin1(path));
    }
    void writeHosts(const QByteArray& bytes) const { folder->write(QStringLiteral("data/hosts.ini"), bytes); }
    QString site(const char* page = "/url.dat") const {
        return QStringLiteral("file://") + folder->path() + QStringLiteral("/data/site") +
               QString::fromLatin1(page);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        globals.AppPath = folder->path();
    }

    void each_host_has_its_own_key() {
        writeHosts("[Hosts]\r\nupdate=http://u.example\r\nweb=https://w.example\r\nsearch=http://"
                   "s.example:8080/sub\r\n");
        QCOMPARE(address(Hosts::Host::update), QStringLiteral("http://u.example/url.dat"));
        QCOMPARE(address(Hosts::Host::web), QStringLiteral("https://w.example/url.dat"));
        QCOMPARE(address(Hosts::Host::search), QStringLiteral("http://s.example:8080/sub/url.dat"));
    }
    void separators_at_the_end_of_a_host_are_dropped() {
        writeHosts("[Hosts]\nupdate=http://u.example//\nweb=data/site/\n");
        QCOMPARE(address(), QStringLiteral("http://u.example/url.dat"));
        QCOMPARE(address(Hosts::Host::web), site());
    }
    void sections_and_keys_are_compared_case_insensitively() {
        writeHosts("[HOSTS]\nUpdate=http://u.example\n");
        QCOMPARE(address(), QStringLiteral("http://u.example/url.dat"));
    }
    void a_host_on_the_network_gets_the_path_unchanged() {
        writeHosts("[Hosts]\nweb=http://w.example\n");
        QCOMPARE(address(Hosts::Host::web, "/modules.php?name=FAQ&x=%20 y#z"),
                 QStringLiteral("http://w.example/modules.php?name=FAQ&x=%20 y#z"));
        QCOMPARE(address(Hosts::Host::web, ""), QStringLiteral("http://w.example"));
    }
    void in_a_folder_a_path_without_a_query_is_the_name_of_a_file_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("file");
        const auto row = [](const char* path, const char* file) {
            QTest::newRow(path) << QString::fromUtf8(path) << QString::fromUtf8(file);
        };
        row("/url.dat", "/url.dat");
        row("/tv_version.txt", "/tv_version.txt");
        row("/online_db.txt", "/online_db.txt");
        row("/banner.swf", "/banner.swf");
        row("/sub/file.txt", "/sub/file.txt");
        row("", "");
        row("/", "");
        row("/../../etc/passwd", "/etc/passwd");
        row("/./.././x", "/x");
        row("//x", "/x");
        row("/%2e%2e/x", "/%252e%252e/x");
        row("/a b#c\"'", "/a%20b%23c%22%27");
        row("/§", "/%C2%A7");
        row("/..\\..\\x", "/..%5C..%5Cx");
    }
    void in_a_folder_a_path_without_a_query_is_the_name_of_a_file() {
        QFETCH(QString, path);
        QFETCH(QString, file);
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, path), site("") + file);
    }
    void in_a_folder_a_path_with_a_query_is_an_html_file_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("file");
        const auto row = [](const char* path, const char* file) {
            QTest::newRow(path) << QString::fromUtf8(path) << QString::fromLatin1(file);
        };
        row("/modules.php?name=FAQ", "modules-name-FAQ");
        row("/modules.php?name=online_db&file=input_db", "modules-name-online_db-file-input_db");
        row("/index.php?section=tv_langfiles", "index-section-tv_langfiles");
        row("/index.php?", "index");
        row("/sub/index.php?a", "sub-index-a");
        row("/../../etc/passwd?a=b", "a-b");
        row("/x.php?a=../../b&c=%2e%2e/d", "x-a-b-c-2e-2e-d");
        row("/x.php?a=\"b\"&c='d'#e;f", "x-a-b-c-d-e-f");
        row("/x.php?a=§é&&b", "x-a-b");
        row("/x.php?a=C:\\con", "x-a-C-con");
        row("/x.php?query=typed&more", "x-query");
        row("/x.php?subquery=kept", "x-subquery-kept");
        row("?", "");
    }
    void in_a_folder_a_path_with_a_query_is_an_html_file() {
        QFETCH(QString, path);
        QFETCH(QString, file);
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, path), site("/") + file + QStringLiteral(".html"));
    }
    void control_characters_never_become_part_of_a_name() {
        const QString path = QStringLiteral("/a\u0000b\n\u007F\u0085.txt");
        QCOMPARE(path.size(), 11);
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, path), site("/ab.txt"));
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, QStringLiteral("/x.php?a\u0000b\nc")),
                 site("/x-a-b-c.html"));
    }
    void the_name_of_an_html_file_has_at_most_100_characters() {
        const QString path = QStringLiteral("/x.php?") + QString(1000000, QLatin1Char('a'));
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, path),
                 site("/x-") + QString(98, QLatin1Char('a')) + QStringLiteral(".html"));
        const QString cutAtHyphen =
            QStringLiteral("/x.php?") + QString(97, QLatin1Char('a')) + QStringLiteral("&b");
        QCOMPARE(Hosts(globals).address(Hosts::Host::web, cutAtHyphen),
                 site("/x-") + QString(97, QLatin1Char('a')) + QStringLiteral(".html"));
    }
    void without_a_usable_host_the_site_of_the_tree_is_used_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("no section") << QByteArray("update=http://u.example\n");
        QTest::newRow("no key") << QByteArray("[Hosts]\nweb=http://w.example\n");
        QTest::newRow("empty key") << QByteArray("[Hosts]\nupdate=\n");
        QTest::newRow("blank key") << QByteArray("[Hosts]\nupdate=   \n");
        QTest::newRow("junk") << QByteArray("\0\xFF[Hosts\nupdate", 16);
        QTest::newRow("named explicitly") << QByteArray("[Hosts]\nupdate=data/site\n");
        QTest::newRow("with the other separator") << QByteArray("[Hosts]\nupdate=data\\site\n");
        QTest::newRow("in another case") << QByteArray("[Hosts]\nupdate=DATA/Site\n");
    }
    void without_a_usable_host_the_site_of_the_tree_is_used() {
        QFETCH(QByteArray, bytes);
        folder->makeFolder(QStringLiteral("data/site"));
        writeHosts(bytes);
        QCOMPARE(address(), site());
    }
    void with_a_missing_or_unreadable_file_the_site_of_the_tree_is_used() {
        QCOMPARE(address(), site());
        folder->makeFolder(QStringLiteral("data/hosts.ini"));
        QCOMPARE(address(), site());
        QVERIFY(QDir().rmdir(folder->path(QStringLiteral("data/hosts.ini"))));
        writeHosts("[Hosts]\nupdate=http://u.example\n");
        folder->setMode(QStringLiteral("data/hosts.ini"), 0);
        const OrdinaryUser user;
        QCOMPARE(address(), site());
    }
    void the_address_of_a_folder_leads_to_its_files_whatever_its_name_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"a b", "100%", "%41", "#1", "what?", "Señor", "a\\b", "q\"'", "a;b&c=d",
                                 "line\nbreak", "a+b", "[x]", "no utf8 \xF1"}) {
            QTest::newRow(name) << QByteArray(name);
        }
    }
    void the_address_of_a_folder_leads_to_its_files_whatever_its_name() {
        QFETCH(QByteArray, name);
        QCOMPARE(mkdir(folder->native(name).constData(), 0755), 0);
        globals.AppPath = NativeText::fromNative(folder->native(name));
        const QString url = address();
        QVERIFY(url.startsWith(QStringLiteral("file:///")));
        const QByteArray path = QByteArray::fromPercentEncoding(url.mid(7).toLatin1());
        QCOMPARE(path, folder->native(name) + "/data/site/url.dat");
        // The path holds no character at which a browser would end it.
        QCOMPARE(url.count(QLatin1Char('#')) + url.count(QLatin1Char('?')) + url.count(QLatin1Char(' ')), 0);
        QVERIFY(QUrl(url, QUrl::StrictMode).isValid());
    }
    void a_changed_file_takes_effect_at_once() {
        writeHosts("[Hosts]\nupdate=http://one.example\n");
        const Hosts hosts(globals);
        QCOMPARE(hosts.address(Hosts::Host::update, QString()), QStringLiteral("http://one.example"));
        writeHosts("[Hosts]\nupdate=http://two.example\n");
        QCOMPARE(hosts.address(Hosts::Host::update, QString()), QStringLiteral("http://two.example"));
    }
    void the_file_shipped_with_the_program_names_all_three_hosts() {
        globals.AppPath = QStringLiteral(TORVANE_TREE_DIR);
        const QString expected = QStringLiteral("file://" TORVANE_TREE_DIR "/data/site/x");
        for (const auto host : {Hosts::Host::update, Hosts::Host::web, Hosts::Host::search}) {
            QCOMPARE(address(host, "/x"), expected);
        }
    }
};

TORVANE_APPLESS_TEST(HostsTest)
#include "HostsTest.moc"

// SPDX-License-Identifier: MIT
// Addresses of the servers: hosts on the network, hosts that are folders, and files that say neither.
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
    void separators_at_the_end_of_a_host_are_left_out() {
        writeHosts("[Hosts]\nupdate=http://u.example//\nweb=data/site/\n");
        QCOMPARE(address(), QStringLiteral("http://u.example/url.dat"));
        QCOMPARE(address(Hosts::Host::web), site());
    }
    void sections_and_keys_are_compared_without_regard_to_case() {
        writeHosts("[HOSTS]\nUpdate=http://u.example\n");
        QCOMPARE(address(), QStringLiteral("http://u.example/url.dat"));
    }
    void the_page_is_taken_over_as_it_stands() {
        writeHosts("[Hosts]\nweb=http://w.example\n");
        QCOMPARE(address(Hosts::Host::web, "/modules.php?name=FAQ&x=%20 y#z"),
                 QStringLiteral("http://w.example/modules.php?name=FAQ&x=%20 y#z"));
        QCOMPARE(address(Hosts::Host::update, "/modules.php?name=FAQ"), site("/modules.php?name=FAQ"));
        QCOMPARE(address(Hosts::Host::web, ""), QStringLiteral("http://w.example"));
    }
    void without_a_usable_host_the_site_of_the_tree_stands_in_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("no section") << QByteArray("update=http://u.example\n");
        QTest::newRow("no key") << QByteArray("[Hosts]\nweb=http://w.example\n");
        QTest::newRow("empty key") << QByteArray("[Hosts]\nupdate=\n");
        QTest::newRow("blank key") << QByteArray("[Hosts]\nupdate=   \n");
        QTest::newRow("junk") << QByteArray("\0\xFF[Hosts\nupdate", 16);
        QTest::newRow("said in so many words") << QByteArray("[Hosts]\nupdate=data/site\n");
        QTest::newRow("with the other separator") << QByteArray("[Hosts]\nupdate=data\\site\n");
        QTest::newRow("in other case") << QByteArray("[Hosts]\nupdate=DATA/Site\n");
    }
    void without_a_usable_host_the_site_of_the_tree_stands_in() {
        QFETCH(QByteArray, bytes);
        folder->makeFolder(QStringLiteral("data/site"));
        writeHosts(bytes);
        QCOMPARE(address(), site());
    }
    void without_a_file_or_with_an_unreadable_one_the_site_of_the_tree_stands_in() {
        QCOMPARE(address(), site());
        folder->makeFolder(QStringLiteral("data/hosts.ini"));
        QCOMPARE(address(), site());
        QVERIFY(QDir().rmdir(folder->path(QStringLiteral("data/hosts.ini"))));
        writeHosts("[Hosts]\nupdate=http://u.example\n");
        folder->setMode(QStringLiteral("data/hosts.ini"), 0);
        const OrdinaryUser user;
        QCOMPARE(address(), site());
    }
    void the_address_of_a_folder_leads_to_its_files_whatever_it_is_called_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"a b", "100%", "%41", "#1", "what?", "Señor", "a\\b", "q\"'", "a;b&c=d",
                                 "line\nbreak", "a+b", "[x]", "no utf8 \xF1"}) {
            QTest::newRow(name) << QByteArray(name);
        }
    }
    void the_address_of_a_folder_leads_to_its_files_whatever_it_is_called() {
        QFETCH(QByteArray, name);
        QCOMPARE(mkdir(folder->native(name).constData(), 0755), 0);
        globals.AppPath = NativeText::fromNative(folder->native(name));
        const QString told = address();
        QVERIFY(told.startsWith(QStringLiteral("file:///")));
        const QByteArray path = QByteArray::fromPercentEncoding(told.mid(7).toLatin1());
        QCOMPARE(path, folder->native(name) + "/data/site/url.dat");
        // What a browser would take for the end of the path does not stand in it.
        QCOMPARE(told.count(QLatin1Char('#')) + told.count(QLatin1Char('?')) + told.count(QLatin1Char(' ')),
                 0);
        QVERIFY(QUrl(told, QUrl::StrictMode).isValid());
    }
    void a_changed_file_counts_at_once() {
        writeHosts("[Hosts]\nupdate=http://one.example\n");
        const Hosts hosts(globals);
        QCOMPARE(hosts.address(Hosts::Host::update, QString()), QStringLiteral("http://one.example"));
        writeHosts("[Hosts]\nupdate=http://two.example\n");
        QCOMPARE(hosts.address(Hosts::Host::update, QString()), QStringLiteral("http://two.example"));
    }
    void the_file_that_comes_with_the_program_names_all_three_hosts() {
        globals.AppPath = QStringLiteral(TORVANE_TREE_DIR);
        const QString expected = QStringLiteral("file://" TORVANE_TREE_DIR "/data/site/x");
        for (const auto host : {Hosts::Host::update, Hosts::Host::web, Hosts::Host::search}) {
            QCOMPARE(address(host, "/x"), expected);
        }
    }
};

TORVANE_APPLESS_TEST(HostsTest)
#include "HostsTest.moc"

// SPDX-License-Identifier: MIT
// The user's folders in any environment.
#include "home/UserFolders.h"
#include "support/TestMain.h"

#include <pwd.h>
#include <unistd.h>

using namespace torvane;

class UserFoldersTest : public QObject {
    Q_OBJECT

    struct Variable {
        const char* name;
        QByteArray value = qgetenv(name);
        bool isSet = qEnvironmentVariableIsSet(name);
        ~Variable() { isSet ? void(qputenv(name, value)) : void(qunsetenv(name)); }
    };

    static QByteArray listed() {
        const passwd* entry = getpwuid(getuid());
        return entry != nullptr ? QByteArray(entry->pw_dir) : QByteArray();
    }

private slots:
    void the_variables_decide_where_they_are_absolute_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("counts");
        QTest::newRow("absolute") << QByteArray("/some where/data") << true;
        QTest::newRow("any bytes") << QByteArray("/some\\where/\xFF") << true;
        QTest::newRow("empty") << QByteArray("") << false;
        QTest::newRow("relative") << QByteArray("data") << false;
        QTest::newRow("dots") << QByteArray("../data") << false;
        QTest::newRow("tilde") << QByteArray("~/data") << false;
    }
    void the_variables_decide_where_they_are_absolute() {
        QFETCH(QByteArray, value);
        QFETCH(bool, counts);
        const Variable home{"HOME"};
        const Variable data{"XDG_DATA_HOME"};
        const Variable configuration{"XDG_CONFIG_HOME"};
        qputenv("HOME", "/home/ana");
        qputenv("XDG_DATA_HOME", value);
        qputenv("XDG_CONFIG_HOME", value);
        QCOMPARE(UserFolders::data(), counts ? value : QByteArray("/home/ana/.local/share"));
        QCOMPARE(UserFolders::configuration(), counts ? value : QByteArray("/home/ana/.config"));
    }
    void each_folder_has_its_own_variable() {
        const Variable data{"XDG_DATA_HOME"};
        const Variable configuration{"XDG_CONFIG_HOME"};
        qputenv("XDG_DATA_HOME", "/data");
        qputenv("XDG_CONFIG_HOME", "/settings");
        QCOMPARE(UserFolders::data(), QByteArray("/data"));
        QCOMPARE(UserFolders::configuration(), QByteArray("/settings"));
    }
    void unset_variables_lead_into_the_home() {
        const Variable home{"HOME"};
        const Variable data{"XDG_DATA_HOME"};
        qputenv("HOME", "/home/ana");
        qunsetenv("XDG_DATA_HOME");
        QCOMPARE(UserFolders::data(), QByteArray("/home/ana/.local/share"));
    }
    void separators_at_the_end_do_not_count() {
        const Variable home{"HOME"};
        const Variable data{"XDG_DATA_HOME"};
        const Variable configuration{"XDG_CONFIG_HOME"};
        qputenv("XDG_DATA_HOME", "/data//");
        qunsetenv("XDG_CONFIG_HOME");
        qputenv("HOME", "/home/ana/");
        QCOMPARE(UserFolders::home(), QByteArray("/home/ana"));
        QCOMPARE(UserFolders::data(), QByteArray("/data"));
        QCOMPARE(UserFolders::configuration(), QByteArray("/home/ana/.config"));
        qputenv("HOME", "//");
        QCOMPARE(UserFolders::home(), QByteArray("/"));
        QCOMPARE(UserFolders::configuration(), QByteArray("/.config"));
    }
    void who_is_not_in_the_list_has_no_folders() {
        if (geteuid() != 0) QSKIP("only root can become a user who is not in the list");
        const Variable home{"HOME"};
        const Variable data{"XDG_DATA_HOME"};
        const Variable configuration{"XDG_CONFIG_HOME"};
        for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"}) qunsetenv(name);
        constexpr uid_t nobodys = 4'242'424;
        QVERIFY(getpwuid(nobodys) == nullptr);
        QCOMPARE(setresuid(nobodys, nobodys, 0), 0);
        const QByteArrayList found{UserFolders::home(), UserFolders::data(), UserFolders::configuration()};
        QCOMPARE(setresuid(0, 0, 0), 0);
        QCOMPARE(found, QByteArrayList({"", "", ""}));
    }
    void without_a_home_the_list_of_users_has_it() {
        const Variable home{"HOME"};
        for (const char* value : {"", "relative"}) {
            qputenv("HOME", value);
            QCOMPARE(UserFolders::home(), listed());
        }
        qunsetenv("HOME");
        QCOMPARE(UserFolders::home(), listed());
    }
};

TORVANE_TEST(UserFoldersTest)
#include "UserFoldersTest.moc"

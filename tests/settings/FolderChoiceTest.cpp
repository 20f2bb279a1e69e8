// SPDX-License-Identifier: MIT
// The choice of a folder by a save dialog: what is proposed, and what is cut out of the answer.
#include "settings/FolderChoice.h"
#include "platform/base/Paths.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class FolderChoiceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    const QString home = u"/home/ana"_s;
    const QString homeProposal = u"/home/ana\\Este Directorio"_s;

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    // The proposal
    void a_folder_that_is_there_is_proposed_with_the_marker_in_it() {
        folder->makeFolder(u"My Shots"_s);
        const QString path = folder->path() + u"/My Shots"_s;
        for (const char* end : {"\\", "/"}) {
            QCOMPARE(FolderChoice::proposal(path + QLatin1String(end), home),
                     path + QLatin1String(end) + u"Este Directorio"_s);
        }
        QCOMPARE(FolderChoice::proposal(path, home), path + u"\\Este Directorio"_s);
        QCOMPARE(FolderChoice::proposal(folder->path() + u"\\my shots\\"_s, home),
                 folder->path() + u"\\my shots\\Este Directorio"_s);
    }
    void what_is_no_folder_gives_way_to_the_home_folder_data() {
        QTest::addColumn<QString>("stored");
        QTest::newRow("nothing") << QString();
        QTest::newRow("the folder of a fresh copy") << u"C:\\"_s;
        QTest::newRow("gone") << u"/no/such/folder/"_s;
        QTest::newRow("a file") << u"HERE/file.png"_s;
        QTest::newRow("a file with a separator") << u"HERE/file.png/"_s;
        QTest::newRow("a pipe") << u"HERE/pipe"_s;
        QTest::newRow("a link to itself") << u"HERE/loop/"_s;
        QTest::newRow("a zero character") << u"HERE\0/"_s;
    }
    void what_is_no_folder_gives_way_to_the_home_folder() {
        QFETCH(QString, stored);
        folder->write(u"file.png"_s, "x");
        QCOMPARE(mkfifo(folder->native("pipe"), 0666), 0);
        QCOMPARE(symlink("loop", folder->native("loop")), 0);
        QCOMPARE(FolderChoice::proposal(stored.replace(u"HERE"_s, folder->path()), home), homeProposal);
    }
    void a_folder_whose_name_is_no_utf_8_gives_way_since_the_dialog_cannot_show_it() {
        QCOMPARE(mkdir(folder->native("no utf8 \xF1"), 0777), 0);
        QCOMPARE(FolderChoice::proposal(Paths::spelled(folder->native("no utf8 \xF1/")), home), homeProposal);
        QCOMPARE(mkdir(folder->native("\xC3\xB1"), 0777), 0);
        QCOMPARE(FolderChoice::proposal(Paths::spelled(folder->native("\xC3\xB1/")), home),
                 folder->path() + u"/ñ/Este Directorio"_s);
    }
    void a_folder_without_rights_is_proposed_all_the_same() {
        QCOMPARE(mkdir(folder->native("closed"), 0), 0);
        const OrdinaryUser user;
        QCOMPARE(FolderChoice::proposal(folder->path() + u"/closed/"_s, home),
                 folder->path() + u"/closed/Este Directorio"_s);
    }
    void the_root_is_a_home_folder_too() {
        QCOMPARE(FolderChoice::proposal({}, u"/"_s), u"/Este Directorio"_s);
    }

    // The cut
    void the_folder_is_what_is_before_the_marker_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("folder");
        QTest::newRow("plain") << u"/home/ana/shots/Este Directorio"_s << u"/home/ana/shots/"_s;
        QTest::newRow("the root") << u"/Este Directorio"_s << u"/"_s;
        QTest::newRow("the marker and more") << u"/a/Este Directorio 2.png"_s << u"/a/"_s;
        QTest::newRow("more and the marker") << u"/a/not Este Directorio"_s << u"/a/not "_s;
        QTest::newRow("the marker twice") << u"/a/Este Directorio/b/Este Directorio"_s << u"/a/"_s;
        QTest::newRow("other case") << u"/a/este directorio"_s << u"/a/este directorio"_s;
        QTest::newRow("another name") << u"/a/shot.png"_s << u"/a/shot.png"_s;
        QTest::newRow("nothing") << QString() << QString();
    }
    void the_folder_is_what_is_before_the_marker() {
        QFETCH(QString, path);
        QTEST(FolderChoice::folderOf(path), "folder");
    }
    void an_accepted_proposal_gives_the_folder_back() {
        const QString path = folder->path() + u"\\"_s;
        QCOMPARE(FolderChoice::folderOf(FolderChoice::proposal(path, home)), path);
    }

    // Showing
    void a_path_of_any_bytes_can_be_shown() {
        QCOMPARE(FolderChoice::shown(Paths::spelled("/a/\xF1/b\\c")), u"/a/\uFFFD/b\\c"_s);
        QCOMPARE(FolderChoice::shown(u"C:\\ñ"_s), u"C:\\ñ"_s);
    }
};

TORVANE_APPLESS_TEST(FolderChoiceTest)
#include "FolderChoiceTest.moc"

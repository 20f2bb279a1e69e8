// SPDX-License-Identifier: MIT
// Which folder becomes the home, and what is opened where it can't be written to.
#include "TreeFixture.h"
#include "support/Failing.h"
#include "support/TestMain.h"

#include <filesystem>
#include <fstream>

using namespace torvane;
using namespace Qt::StringLiterals;

class HomeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TreeFixture> tree;

    // An installed program: the executable in bin, the template in share.
    HomeQuestion question() const { return {tree->real("bin"), "../share/tree", tree->real("user"), {}}; }
    QString spelled(const char* relative) const { return Paths::spelled(tree->real(relative)); }
    QByteArray fileBelow(const QString& folder, const char* name) const {
        QFile file(folder + QLatin1String(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }
    OpenedHome openedBelow(const char* userData) const {
        HomeQuestion asked = question();
        asked.userData = tree->real(userData);
        return openedByOrdinary(asked);
    }
    OpenedHome openedByOrdinary(const HomeQuestion& asked) const {
        setModesOfTemplate(0555);
        const OpenedHome opened = [&] {
            const OrdinaryUser ordinary;
            return openHome(chooseHome(asked));
        }();
        setModesOfTemplate(0755);
        return opened;
    }
    void setModesOfTemplate(mode_t mode) const {
        for (const char* folder : {"share/tree/data", "share/tree"}) {
            tree->folder.setMode(QString::fromUtf8(folder), mode);
        }
    }
    mode_t modeOf(const char* relative) const {
        struct stat info {};
        stat(tree->real(relative).constData(), &info);
        return info.st_mode & 07777;
    }
    void requireTemplateForLooking(const OpenedHome& opened) const {
        QVERIFY(opened.isForLooking && !opened.isClosed);
        QVERIFY(opened.problem);
        QCOMPARE(fileBelow(opened.folder, "/data/lang/lang_eng.tvl"), QByteArray("one"));
        QCOMPARE(Paths::real(opened.folder), tree->templateFolder());
    }

private slots:
    void init() {
        tree = std::make_unique<TreeFixture>();
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "one"}});
        tree->folder.makeFolder(u"bin"_s);
        tree->folder.makeFolder(u"user"_s);
        tree->folder.setMode(u"user"_s, 0777);
    }

    // The choice
    void a_data_folder_beside_the_executable_makes_it_portable() {
        tree->folder.makeFolder(u"bin/data"_s);
        const Home home = chooseHome(question());
        QCOMPARE(home.kind, Home::Kind::portable);
        QCOMPARE(home.folder, tree->real("bin"));
        QCOMPARE(openHome(home).folder, spelled("bin"));
        QVERIFY(!openHome(home).problem);
    }
    void a_portable_home_is_opened_as_it_is() {
        tree->folder.makeFolder(u"bin/data"_s);
        openHome(chooseHome(question()));
        QCOMPARE(tree->folder.entries(u"bin"_s), QStringList{u"data"_s});
    }
    void an_installed_program_has_its_home_where_the_users_data_lies() {
        const Home home = chooseHome(question());
        QCOMPARE(home.kind, Home::Kind::user);
        QCOMPARE(home.folder, tree->real("user/torvane"));
        const OpenedHome opened = openHome(home);
        QCOMPARE(opened.folder, spelled("user/torvane"));
        QVERIFY(!opened.isForLooking && !opened.problem);
        QCOMPARE(fileBelow(opened.folder, "/data/lang/lang_eng.tvl"), QByteArray("one"));
    }
    void a_file_named_data_makes_nothing_portable() {
        tree->folder.write(u"bin/data"_s, "");
        QCOMPARE(chooseHome(question()).kind, Home::Kind::user);
    }
    void a_data_folder_that_cannot_be_written_to_does_not_beat_the_template() {
        tree->folder.makeFolder(u"bin/data"_s);
        for (const mode_t mode : {0555, 0666}) {
            tree->folder.setMode(u"bin/data"_s, mode);
            const OrdinaryUser ordinary;
            QCOMPARE(chooseHome(question()).kind, Home::Kind::user);
        }
    }
    void an_index_that_is_a_folder_makes_no_template() {
        QVERIFY(QFile::remove(tree->folder.path(u"share/tree/data/.laid-out"_s)));
        tree->folder.makeFolder(u"share/tree/data/.laid-out"_s);
        QCOMPARE(chooseHome(question()).kind, Home::Kind::portable);
    }
    void the_template_may_be_named_absolutely() {
        HomeQuestion asked = question();
        asked.installedTemplate = tree->real("share/tree");
        QCOMPARE(chooseHome(asked).templateFolder, tree->real("share/tree"));
    }
    void a_given_folder_beats_both_and_is_laid_out() {
        tree->folder.makeFolder(u"bin/data"_s);
        HomeQuestion asked = question();
        asked.given = tree->real("else where/\xFF");
        const OpenedHome opened = openHome(chooseHome(asked));
        QVERIFY(!opened.problem);
        QCOMPARE(Paths::real(opened.folder), asked.given);
        QVERIFY(QFileInfo::exists(tree->folder.path(u"else where"_s)));
        std::ifstream file((asked.given + "/data/lang/lang_eng.tvl").toStdString());
        QVERIFY(file.good());
        QVERIFY(!QFileInfo::exists(tree->folder.path(u"user/torvane"_s)));
    }
    void a_given_relative_folder_counts_from_the_working_folder() {
        HomeQuestion asked = question();
        for (const char* given : {"games", "games/", "./x/..//games//"}) {
            asked.given = given;
            QCOMPARE(chooseHome(asked).folder, QDir::currentPath().toUtf8() + "/games");
        }
    }
    void two_dots_after_a_link_lead_out_of_its_target() {
        tree->folder.makeFolder(u"disk/deep"_s);
        QVERIFY(QFile::link(u"disk/deep"_s, tree->folder.path(u"link"_s)));
        HomeQuestion asked = question();
        asked.given = tree->real("link/../new/games");
        const auto disk = std::filesystem::canonical(tree->real("disk").toStdString());
        QCOMPARE(chooseHome(asked).folder, QByteArray::fromStdString(disk.string()) + "/new/games");
        asked.given = tree->real("link/new");
        QCOMPARE(chooseHome(asked).folder, asked.given);
    }
    void a_given_folder_that_is_a_file_or_a_circle_opens_the_template() {
        tree->folder.write(u"file"_s, "mine");
        QVERIFY(QFile::link(u"circle"_s, tree->folder.path(u"circle"_s)));
        for (const char* given : {"file", "file/below", "circle", "circle/../circle"}) {
            HomeQuestion asked = question();
            asked.given = tree->real(given);
            requireTemplateForLooking(openedByOrdinary(asked));
        }
        HomeQuestion odd = question();
        odd.given = tree->real("circle/../circle");
        QCOMPARE(chooseHome(odd).folder, tree->real("circle"));
        QCOMPARE(tree->folder.read(u"file"_s), QByteArray("mine"));
    }
    void a_template_that_can_be_written_to_is_nothing_to_look_at_data() {
        QTest::addColumn<QString>("writable");
        QTest::newRow("all of it") << u"share/tree"_s;
        QTest::newRow("its data") << u"share/tree/data"_s;
        QTest::newRow("its games") << u"share/tree/roms"_s;
    }
    void a_template_that_can_be_written_to_is_nothing_to_look_at() {
        QFETCH(QString, writable);
        tree->folder.makeFolder(u"share/tree/roms"_s);
        tree->folder.write(u"file"_s, "mine");
        HomeQuestion asked = question();
        asked.given = tree->real("file");
        setModesOfTemplate(0555);
        tree->folder.setMode(u"share/tree/roms"_s, 0555);
        tree->folder.setMode(writable, 0777);
        {
            const OrdinaryUser ordinary;
            const OpenedHome opened = openHome(chooseHome(asked));
            QVERIFY(opened.isClosed && opened.problem);
        }
        setModesOfTemplate(0755);
    }
    void a_portable_library_is_not_opened_in_place_of_a_given_folder() {
        HomeQuestion asked = question();
        asked.applicationFolder = tree->templateFolder();
        asked.installedTemplate = "../nowhere";
        asked.given = "/proc/nowhere";
        QVERIFY(openHome(chooseHome(asked)).isClosed);
    }
    void a_file_as_the_given_folder_is_reported_as_no_folder() {
        tree->folder.write(u"file"_s, "mine");
        HomeQuestion asked = question();
        asked.given = tree->real("file");
        const OpenedHome opened = openedByOrdinary(asked);
        QCOMPARE(opened.problem->file(), spelled("file"));
        QCOMPARE(opened.problem->reason(), RuntimeFailure::Reason::noFolder);
    }
    void a_given_folder_without_any_template_is_opened_with_its_folders() {
        HomeQuestion asked = question();
        asked.installedTemplate = "../nowhere";
        asked.given = tree->real("given");
        const OpenedHome opened = openHome(chooseHome(asked));
        QVERIFY(!opened.problem && !opened.isForLooking);
        QVERIFY(chooseHome(asked).templateFolder.isEmpty());
        QVERIFY(QFileInfo::exists(tree->folder.path(u"given/roms"_s)));
    }
    void without_an_installed_template_a_given_folder_is_laid_out_from_the_portable_one() {
        HomeQuestion asked = question();
        asked.applicationFolder = tree->templateFolder();
        asked.installedTemplate = "../nowhere";
        asked.given = tree->real("given");
        tree->folder.write(u"share/tree/roms/mine.gb"_s, "a game of the user's");
        const OpenedHome opened = openHome(chooseHome(asked));
        QCOMPARE(fileBelow(opened.folder, "/data/lang/lang_eng.tvl"), QByteArray("one"));
        QVERIFY(!QFileInfo::exists(opened.folder + u"/roms/mine.gb"_s));
    }
    void without_any_template_the_executables_folder_is_the_home() {
        HomeQuestion asked = question();
        asked.installedTemplate = "../nowhere";
        QCOMPARE(chooseHome(asked).kind, Home::Kind::portable);
        QCOMPARE(chooseHome(asked).folder, tree->real("bin"));
    }

    // Where it can't be written
    void a_portable_home_on_a_read_only_medium_is_for_looking() {
        tree->folder.makeFolder(u"bin/data"_s);
        tree->folder.setMode(u"bin/data"_s, 0555);
        HomeQuestion asked = question();
        asked.installedTemplate = "../nowhere";
        const OrdinaryUser ordinary;
        const OpenedHome opened = openHome(chooseHome(asked));
        QVERIFY(opened.isForLooking);
        QCOMPARE(opened.folder, spelled("bin"));
        QCOMPARE(opened.problem->number(), RuntimeFailure::permissionDenied);
    }
    void a_portable_home_for_looking_gets_no_folders() {
        tree->folder.makeFolder(u"bin/data"_s);
        tree->folder.setMode(u"bin"_s, 0777);
        tree->folder.setMode(u"bin/data"_s, 0555);
        HomeQuestion asked = question();
        asked.installedTemplate = "../nowhere";
        {
            const OrdinaryUser ordinary;
            QVERIFY(openHome(chooseHome(asked)).isForLooking);
        }
        tree->folder.setMode(u"bin/data"_s, 0755);
        QCOMPARE(tree->folder.entries(u"bin"_s), QStringList{u"data"_s});
    }
    void a_home_that_was_laid_out_and_is_read_only_now_is_opened_for_looking() {
        openedBelow("user");
        for (const char* folder : {"user/torvane/data", "user/torvane"}) {
            tree->folder.setMode(QString::fromUtf8(folder), 0555);
        }
        const OpenedHome opened = openedBelow("user");
        QVERIFY(opened.isForLooking);
        QCOMPARE(opened.folder, spelled("user/torvane"));
        QCOMPARE(opened.problem->file(), spelled("user/torvane"));
    }
    void a_home_of_which_one_folder_is_read_only_is_opened_for_looking() {
        openedBelow("user");
        for (const char* folder : {"user/torvane/data", "user/torvane"}) {
            tree->folder.setMode(QString::fromUtf8(folder), 0555);
            const OpenedHome opened = openedBelow("user");
            QVERIFY2(opened.isForLooking && opened.problem, folder);
            tree->folder.setMode(QString::fromUtf8(folder), 0755);
        }
    }
    void a_home_whose_data_is_on_a_disk_that_is_away_opens_the_template() {
        openedBelow("user");
        QVERIFY(QDir(tree->folder.path(u"user/torvane/data"_s)).removeRecursively());
        QVERIFY(QFile::link(u"/nowhere/data"_s, tree->folder.path(u"user/torvane/data"_s)));
        const OpenedHome opened = openedBelow("user");
        requireTemplateForLooking(opened);
        QCOMPARE(opened.problem->file(), spelled("user/torvane/data"));
    }
    void a_read_only_home_that_was_never_laid_out_opens_the_template() {
        tree->folder.setMode(u"user"_s, 0555);
        const OpenedHome opened = openedBelow("user");
        requireTemplateForLooking(opened);
        QCOMPARE(opened.problem->number(), RuntimeFailure::permissionDenied);
    }
    void a_file_as_the_given_folder_is_named_where_there_is_no_template() {
        tree->folder.write(u"file"_s, "mine");
        HomeQuestion asked = question();
        asked.installedTemplate = "../nowhere";
        asked.given = tree->real("file");
        const OpenedHome opened = openHome(chooseHome(asked));
        QVERIFY(opened.isForLooking && opened.problem);
        QCOMPARE(opened.folder, spelled("file"));
    }
    void a_data_home_that_is_a_file_opens_the_template() {
        tree->folder.write(u"file"_s, "");
        requireTemplateForLooking(openedBelow("file"));
    }
    void a_data_home_that_is_a_link_in_a_circle_opens_the_template() {
        QVERIFY(QFile::link(u"circle"_s, tree->folder.path(u"circle"_s)));
        requireTemplateForLooking(openedBelow("circle"));
    }
    void a_data_home_of_somebody_else_opens_the_template() {
        tree->folder.makeFolder(u"closed"_s);
        tree->folder.setMode(u"closed"_s, 0700);
        if (geteuid() != 0) QSKIP("only root can make a folder that is somebody else's");
        requireTemplateForLooking(openedBelow("closed"));
    }
    void a_data_home_below_a_missing_folder_is_made() {
        const OpenedHome opened = openedBelow("user/not/yet");
        QVERIFY(!opened.problem);
        QCOMPARE(opened.folder, spelled("user/not/yet/torvane"));
    }
    void folders_of_the_users_are_made_for_him_alone() {
        openedBelow("user/not/yet");
        for (const char* folder : {"user/not", "user/not/yet", "user/not/yet/torvane"}) {
            QCOMPARE(modeOf(folder), mode_t(0700));
        }
        QCOMPARE(modeOf("user"), mode_t(0777));
    }
    void a_given_folder_is_made_like_any_other() {
        HomeQuestion asked = question();
        asked.given = tree->real("given/games");
        openHome(chooseHome(asked));
        tree->folder.makeFolder(u"other"_s);
        QCOMPARE(modeOf("given"), modeOf("other"));
        QCOMPARE(modeOf("given/games"), modeOf("other"));
    }
    void who_has_no_home_sees_the_template_and_hears_why() {
        HomeQuestion asked = question();
        asked.userData.clear();
        QVERIFY(chooseHome(asked).folder.isEmpty());
        const OpenedHome opened = openedByOrdinary(asked);
        requireTemplateForLooking(opened);
        QCOMPARE(opened.problem->reason(), RuntimeFailure::Reason::noHome);
        QCOMPARE(opened.problem->file(), u"$HOME"_s);
    }
    void without_a_home_nothing_is_made_in_the_root_folder() {
        const QStringList before = QDir(u"/"_s).entryList(QDir::AllEntries | QDir::Hidden);
        HomeQuestion asked = question();
        asked.userData.clear();
        QVERIFY(openHome(chooseHome(asked)).problem);
        QCOMPARE(QDir(u"/"_s).entryList(QDir::AllEntries | QDir::Hidden), before);
    }
    void data_in_the_root_folder_has_one_separator() {
        HomeQuestion asked = question();
        asked.userData = "/";
        QCOMPARE(chooseHome(asked).folder, QByteArray("/torvane"));
    }
    void a_home_that_is_a_file_opens_the_template() {
        tree->folder.write(u"user/torvane"_s, "");
        const OpenedHome opened = openedBelow("user");
        requireTemplateForLooking(opened);
        QCOMPARE(opened.problem->file(), spelled("user/torvane"));
        QCOMPARE(opened.problem->reason(), RuntimeFailure::Reason::noFolder);
    }
    void a_disk_that_is_full_from_the_start_opens_the_template() {
        const FullDisk full(0);
        const OpenedHome opened = openedBelow("user");
        requireTemplateForLooking(opened);
        QCOMPARE(opened.problem->number(), RuntimeFailure::diskFull);
    }
    void a_disk_that_is_full_in_an_update_opens_the_home_as_it_is() {
        openedBelow("user");
        tree->makeTemplate({{u"data/lang/lang_eng.tvl"_s, "two"}}, "1.2");
        const FullDisk full(0);
        const OpenedHome opened = openedBelow("user");
        QVERIFY(!opened.isForLooking);
        QCOMPARE(opened.problem->number(), RuntimeFailure::diskFull);
        QCOMPARE(fileBelow(opened.folder, "/data/lang/lang_eng.tvl"), QByteArray("one"));
    }
    void a_home_without_languages_that_cannot_be_updated_is_still_the_users() {
        openedBelow("user");
        QVERIFY(QFile::remove(tree->folder.path(u"user/torvane/data/lang/lang_eng.tvl"_s)));
        tree->makeTemplate({{u"data/added"_s, "two"}}, "1.2");
        const FullDisk full(0);
        const OpenedHome opened = openedBelow("user");
        QCOMPARE(opened.folder, spelled("user/torvane"));
        QVERIFY(!opened.isForLooking);
    }
    void a_disk_with_room_for_the_files_and_not_for_their_record_opens_the_home() {
        QMap<QString, QByteArray> files{{u"data/lang/lang_eng.tvl"_s, "one"}};
        for (int i = 0; i < 40; ++i) files[u"data/f%1"_s.arg(i)] = "small";
        tree->makeTemplate(files);
        const FullDisk full(2000);
        const OpenedHome opened = openedBelow("user");
        QCOMPARE(opened.problem->number(), RuntimeFailure::diskFull);
        QCOMPARE(opened.folder, spelled("user/torvane"));
        QVERIFY(!opened.isForLooking);
    }
    void a_template_whose_index_is_spoiled_leaves_the_home_alone() {
        openedBelow("user");
        tree->folder.write(u"share/tree/data/.laid-out"_s, QByteArray(5000, 'x'));
        const OpenedHome opened = openedBelow("user");
        QVERIFY(!opened.problem);
        QCOMPARE(fileBelow(opened.folder, "/data/lang/lang_eng.tvl"), QByteArray("one"));
    }
};

TORVANE_TEST(HomeTest)
#include "HomeTest.moc"

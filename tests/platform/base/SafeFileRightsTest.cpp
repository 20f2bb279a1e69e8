// SPDX-License-Identifier: MIT
// Permissions and modification time of a file after every way to change it.
#include "support/FileWays.h"
#include "support/TestMain.h"

#include <grp.h>
#include <vector>

using namespace torvane;

namespace {
constexpr uid_t nobody = 65534; // the user that OrdinaryUser becomes, with the test's group
constexpr uid_t somebody = 1234;
constexpr gid_t foreignGroup = 4321;

bool isRoot() { return geteuid() == 0; }

bool operator==(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}
} // namespace

class SafeFileRightsTest : public FileWays {
    Q_OBJECT

    // A file in a world-writable folder.
    void makeOpenFile(uid_t owner, gid_t group, mode_t mode) const {
        write("open/a.gb", "former");
        setMode("open", 0777);
        setOwner("open/a.gb", owner, group);
        setMode("open/a.gb", mode);
    }
    void changeAsOrdinaryUser(Way way) const {
        const OrdinaryUser user;
        changeBy(way, "open/a.gb");
    }

private slots:
    void init() {
        renewFolder();
        write("source", "new");
    }

    void a_missing_file_is_made_with_the_mode_of_the_user_s_mask_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<uint>("mask");
        QTest::addColumn<uint>("mode");
        for (const Way way : {Way::replace, Way::copy}) {
            QTest::addRow("022 by %d", int(way)) << way << 022u << 0644u;
            QTest::addRow("027 by %d", int(way)) << way << 027u << 0640u;
            QTest::addRow("077 by %d", int(way)) << way << 077u << 0600u;
            QTest::addRow("0 by %d", int(way)) << way << 0u << 0666u;
        }
    }
    void a_missing_file_is_made_with_the_mode_of_the_user_s_mask() {
        QFETCH(Way, way);
        QFETCH(uint, mask);
        QFETCH(uint, mode);
        const mode_t previous = umask(mask);
        changeBy(way, "new.gb");
        const mode_t after = umask(previous);
        QCOMPARE(read("new.gb"), QByteArray("new"));
        QCOMPARE(modeOf("new.gb"), mode);
        QCOMPARE(uint(after), mask);
    }
    void mode_owner_and_group_are_kept_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600u, 0644u, 0666u, 0755u, 02755u, 04711u, 0200u}) {
            QTest::addRow("replace %o", mode) << Way::replace << mode;
            QTest::addRow("copy %o", mode) << Way::copy << mode;
            QTest::addRow("change %o", mode) << Way::change << mode;
        }
    }
    void mode_owner_and_group_are_kept() {
        QFETCH(Way, way);
        QFETCH(uint, mode);
        if (way == Way::change && mode == 0200 && !isRoot()) QSKIP("a file that can't be read");
        write("a.gb", "former");
        if (isRoot()) setOwner("a.gb", somebody, foreignGroup);
        setMode("a.gb", mode);
        const struct stat before = infoOf("a.gb");
        const mode_t mask = umask(077); // must have no effect
        changeBy(way, "a.gb");
        umask(mask);
        const struct stat after = infoOf("a.gb");
        QCOMPARE(read("a.gb"), QByteArray("new"));
        QCOMPARE(after.st_mode, before.st_mode);
        QCOMPARE(after.st_uid, before.st_uid);
        QCOMPARE(after.st_gid, before.st_gid);
        QVERIFY(after.st_ino != before.st_ino);
    }
    void an_append_changes_neither_file_nor_permissions() {
        write("a.gb", "former");
        setMode("a.gb", 02640);
        const struct stat before = infoOf("a.gb");
        changeBy(Way::append, "a.gb");
        QCOMPARE(infoOf("a.gb").st_ino, before.st_ino);
        QCOMPARE(infoOf("a.gb").st_mode, before.st_mode);
    }
    void a_file_of_another_user_belongs_to_the_saving_user_with_the_same_group_and_mode_data() {
        wayRows(true);
    }
    void a_file_of_another_user_belongs_to_the_saving_user_with_the_same_group_and_mode() {
        QFETCH(Way, way);
        if (!isRoot()) QSKIP("only root can make files of others");
        makeOpenFile(somebody, getegid(), 0660);
        changeAsOrdinaryUser(way);
        QCOMPARE(read("open/a.gb"), QByteArray("new"));
        QCOMPARE(infoOf("open/a.gb").st_uid, nobody);
        QCOMPARE(infoOf("open/a.gb").st_gid, getegid());
        QCOMPARE(modeOf("open/a.gb"), 0660u);
    }
    void a_group_that_is_one_of_the_user_s_is_kept_data() { wayRows(true); }
    void a_group_that_is_one_of_the_user_s_is_kept() {
        QFETCH(Way, way);
        if (!isRoot()) QSKIP("only root can join groups");
        std::vector<gid_t> previousGroups(static_cast<size_t>(getgroups(0, nullptr)));
        getgroups(static_cast<int>(previousGroups.size()), previousGroups.data());
        QCOMPARE(setgroups(1, &foreignGroup), 0);
        makeOpenFile(somebody, foreignGroup, 02660);
        changeAsOrdinaryUser(way);
        QCOMPARE(setgroups(previousGroups.size(), previousGroups.data()), 0);
        QCOMPARE(read("open/a.gb"), QByteArray("new"));
        QCOMPARE(infoOf("open/a.gb").st_gid, foreignGroup);
        QCOMPARE(modeOf("open/a.gb"), 02660u);
    }
    void where_the_group_can_not_be_set_it_gets_the_permissions_of_others_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<uint>("before");
        QTest::addColumn<uint>("after");
        const auto rows = [](uint before, uint after) {
            QTest::addRow("replace %o", before) << Way::replace << before << after;
            QTest::addRow("copy %o", before) << Way::copy << before << after;
            QTest::addRow("change %o", before) << Way::change << before << after;
        };
        rows(0660, 0600);
        rows(0664, 0644);
        rows(0640, 0600);
        rows(0666, 0666);
        rows(02770, 0700);
        rows(02775, 0755);
    }
    void where_the_group_can_not_be_set_it_gets_the_permissions_of_others() {
        QFETCH(Way, way);
        QFETCH(uint, before);
        QFETCH(uint, after);
        if (!isRoot()) QSKIP("only root can make files of other groups");
        makeOpenFile(nobody, foreignGroup, before);
        changeAsOrdinaryUser(way);
        QCOMPARE(read("open/a.gb"), QByteArray("new"));
        QCOMPARE(infoOf("open/a.gb").st_gid, getegid());
        QCOMPARE(modeOf("open/a.gb"), after);
    }
    void a_set_user_id_file_does_not_run_as_the_user_who_saved_it_data() { wayRows(true); }
    void a_set_user_id_file_does_not_run_as_the_user_who_saved_it() {
        QFETCH(Way, way);
        if (!isRoot()) QSKIP("only root can make files of others");
        makeOpenFile(somebody, getegid(), 04777);
        changeAsOrdinaryUser(way);
        QCOMPARE(infoOf("open/a.gb").st_uid, nobody);
        QCOMPARE(modeOf("open/a.gb"), 0777u);
    }
    void a_change_keeps_the_permissions_that_the_file_has_at_its_end() {
        const QString path = write("a.gb", "former");
        setMode("a.gb", 0644);
        const SafeFile::Change change(path);
        setMode("a.gb", 0600);
        change.commit({"new"});
        QCOMPARE(read("a.gb"), QByteArray("new"));
        QCOMPARE(modeOf("a.gb"), 0600u);
    }
    void a_changed_file_has_the_present_time_and_a_copy_that_of_its_source_data() { wayRows(); }
    void a_changed_file_has_the_present_time_and_a_copy_that_of_its_source() {
        QFETCH(Way, way);
        write("a.gb", "former");
        makeOld("a.gb");
        QVERIFY(infoOf("a.gb").st_mtim == longAgo);
        if (way == Way::copy) {
            write("a.gb", "former");
            makeOld("source");
        }
        changeBy(way, "a.gb");
        QCOMPARE(infoOf("a.gb").st_mtim == longAgo, way == Way::copy);
        QCOMPARE(read("a.gb"), changed(way));
    }
    void a_new_copy_has_the_time_of_its_source_too() {
        makeOld("source");
        changeBy(Way::copy, "new.gb");
        QVERIFY(infoOf("new.gb").st_mtim == longAgo);
    }
    void another_hard_link_keeps_the_old_content_but_sees_an_appended_line_data() { wayRows(); }
    void another_hard_link_keeps_the_old_content_but_sees_an_appended_line() {
        QFETCH(Way, way);
        write("a.gb", "former");
        hardLink("a.gb", "b.gb");
        changeBy(way, "a.gb");
        QCOMPARE(read("a.gb"), changed(way));
        QCOMPARE(read("b.gb"), way == Way::append ? changed(way) : QByteArray("former"));
    }
    void a_symbolic_link_stays_and_its_target_is_changed_data() {
        QTest::addColumn<Way>("way");
        QTest::addColumn<QByteArray>("target");
        for (const char* target :
             {"sub/real.gb", "sub/second.gb", "absolute", "sub/../sub/far/near/real.gb"}) {
            QTest::addRow("replace %s", target) << Way::replace << QByteArray(target);
            QTest::addRow("copy %s", target) << Way::copy << QByteArray(target);
            QTest::addRow("change %s", target) << Way::change << QByteArray(target);
            QTest::addRow("append %s", target) << Way::append << QByteArray(target);
        }
    }
    void a_symbolic_link_stays_and_its_target_is_changed() {
        QFETCH(Way, way);
        QFETCH(QByteArray, target);
        write("sub/real.gb", "former");
        softLink("real.gb", "sub/second.gb");
        folder->makeFolder(QStringLiteral("sub/far"));
        softLink("..", "sub/far/near");
        if (target == "absolute") target = folder->native("sub/real.gb");
        softLink(target.constData(), "link.gb");
        changeBy(way, "link.gb");
        QVERIFY(S_ISLNK(infoOf("link.gb").st_mode));
        QVERIFY(S_ISLNK(infoOf("sub/second.gb").st_mode));
        QVERIFY(S_ISREG(infoOf("sub/real.gb").st_mode));
        QCOMPARE(read("sub/real.gb"), changed(way));
        expectNames({QStringLiteral("link.gb"), QStringLiteral("source"), QStringLiteral("sub")});
        expectNames({QStringLiteral("far"), QStringLiteral("real.gb"), QStringLiteral("second.gb")}, "sub");
    }
};

TORVANE_APPLESS_TEST(SafeFileRightsTest)
#include "SafeFileRightsTest.moc"

// SPDX-License-Identifier: MIT
// From spelled paths to real ones: separators, names that differ only in case, names of any bytes.
#include "platform/base/Paths.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

class PathsTest : public QObject {
    Q_OBJECT

    TestFolder folder;

    QByteArray realOf(const QString& relative) const { return Paths::real(folder.path() + relative); }
    QByteArray at(const char* relative) const { return QFile::encodeName(folder.path()) + relative; }

private slots:
    void the_application_folder_is_that_of_the_executable_without_a_trailing_separator() {
        const QString program = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath();
        QCOMPARE(Paths::applicationFolder(), program);
        QVERIFY(!Paths::applicationFolder().endsWith(QLatin1Char('/')));
    }
    void both_slashes_separate() {
        folder.write(QStringLiteral("roms/data/a.gb"), "x");
        QCOMPARE(realOf(QStringLiteral("\\roms\\data\\a.gb")), at("/roms/data/a.gb"));
        QCOMPARE(realOf(QStringLiteral("/roms\\data/a.gb")), at("/roms/data/a.gb"));
    }
    void every_piece_is_found_without_regard_to_case() {
        folder.write(QStringLiteral("Roms/Data/Game One.GB"), "x");
        QCOMPARE(realOf(QStringLiteral("\\ROMS\\data\\game one.gb")), at("/Roms/Data/Game One.GB"));
    }
    void letters_outside_ascii_are_found_without_regard_to_case() {
        folder.write(QStringLiteral("Señor/ÀÉ.gb"), "x");
        QCOMPARE(realOf(QStringLiteral("\\SEÑOR\\àé.GB")), at("/Señor/ÀÉ.gb"));
    }
    void an_exact_match_is_preferred_to_one_that_differs_in_case() {
        folder.write(QStringLiteral("two/GAME.gb"), "x");
        folder.write(QStringLiteral("two/game.gb"), "x");
        QCOMPARE(realOf(QStringLiteral("\\two\\game.gb")), at("/two/game.gb"));
        QCOMPARE(realOf(QStringLiteral("\\two\\GAME.gb")), at("/two/GAME.gb"));
    }
    void of_several_names_that_differ_in_case_the_smallest_is_taken() {
        for (const char* name : {"three/gAME.gb", "three/Game.gb", "three/game.gb"}) {
            folder.write(QString::fromLatin1(name), "x");
        }
        QCOMPARE(realOf(QStringLiteral("\\three\\GAME.GB")), at("/three/Game.gb"));
    }
    void bytes_that_are_not_text_are_never_mistaken_for_each_other() {
        folder.makeFolder(QStringLiteral("Bytes"));
        folder.writeNative("Bytes/Game\xFE.gb", "x");
        const QString top = folder.path() + QLatin1Char('\\');
        QCOMPARE(Paths::real(top + Paths::spelled("bytes/GAME\xFE.gb")), at("/Bytes/Game\xFE.gb"));
        QCOMPARE(Paths::real(top + Paths::spelled("bytes/GAME\xFF.gb")), at("/Bytes/GAME\xFF.gb"));
    }
    void a_zero_character_does_not_cut_a_path() {
        folder.write(QStringLiteral("Zero"), "x");
        QCOMPARE(realOf(QStringLiteral("\\Zero") + QChar(0) + QStringLiteral("more")), at("/Zero?more"));
    }
    void missing_pieces_stay_as_spelled_below_an_existing_folder() {
        folder.makeFolder(QStringLiteral("Library"));
        QCOMPARE(realOf(QStringLiteral("\\LIBRARY\\New.GB")), at("/Library/New.GB"));
        // A missing folder ends the search: nothing can exist below it.
        QCOMPARE(realOf(QStringLiteral("\\LIBRARY\\Sub\\library")), at("/Library/Sub/library"));
    }
    void a_name_of_any_bytes_is_reached_by_its_spelled_path_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name :
             {"back\\slash.gb", "\\front.gb", "no utf8 \xF1\xFF.gb", "two  blanks .gb", " outer ",
              "quote\"'.gb", "%s%n.gb", "line\nbreak.gb", "..dots..gb", "\xEF\xBB\xBFmark"}) {
            QTest::newRow(name) << QByteArray(name);
        }
    }
    void a_name_of_any_bytes_is_reached_by_its_spelled_path() {
        QFETCH(QByteArray, name);
        const QString spelled = folder.writeNative(name, "x");
        QCOMPARE(Paths::real(spelled), folder.native(name));
        // The search without regard to case uses the same conversion.
        folder.makeFolder(QStringLiteral("Deep"));
        folder.writeNative("Deep/" + name, "x");
        QCOMPARE(Paths::real(folder.path() + QStringLiteral("\\dEEP\\") + Paths::spelled(name)),
                 folder.native("Deep/" + name));
    }
    void trailing_and_doubled_separators_lead_to_the_same_place() {
        folder.write(QStringLiteral("Ends/a.gb"), "x");
        QCOMPARE(realOf(QStringLiteral("\\ENDS\\")), at("/Ends"));
        QCOMPARE(realOf(QStringLiteral("\\\\ENDS\\\\A.GB")), at("/Ends/a.gb"));
    }
    void dot_dot_steps_are_followed() {
        folder.write(QStringLiteral("Up/a.gb"), "x");
        QCOMPARE(
            QFileInfo(QFile::decodeName(realOf(QStringLiteral("\\Up\\..\\UP\\A.gb")))).canonicalFilePath(),
            QFileInfo(folder.path(QStringLiteral("Up/a.gb"))).canonicalFilePath());
    }
    void a_relative_path_starts_in_the_working_folder() {
        folder.write(QStringLiteral("Here/a.gb"), "x");
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.path()));
        const QByteArray exact = Paths::real(QStringLiteral("Here\\a.gb"));
        const QByteArray like = Paths::real(QStringLiteral("HERE\\A.gb"));
        QVERIFY(QDir::setCurrent(previous));
        QCOMPARE(exact, QByteArray("Here/a.gb"));
        QCOMPARE(like, QByteArray("./Here/a.gb"));
    }
    void an_empty_path_stays_empty_and_the_root_is_itself() {
        QCOMPARE(Paths::real(QString()), QByteArray());
        QCOMPARE(Paths::real(QStringLiteral("\\")), QByteArray("/"));
        QCOMPARE(Paths::real(QStringLiteral("\\TMP")), QByteArray("/tmp"));
    }
    void a_dangling_link_counts_as_existing() {
        QCOMPARE(symlink("nowhere", folder.native("Link").constData()), 0);
        folder.write(QStringLiteral("link"), "x");
        QCOMPARE(realOf(QStringLiteral("\\Link")), at("/Link"));
    }
    void below_a_file_or_an_unreadable_folder_the_path_stays_as_spelled() {
        folder.write(QStringLiteral("file"), "x");
        QCOMPARE(realOf(QStringLiteral("\\FILE\\below")), at("/file/below"));
        folder.write(QStringLiteral("shut/Game.gb"), "x");
        folder.setMode(QStringLiteral("shut"), 0);
        QByteArray real;
        {
            const OrdinaryUser user;
            real = realOf(QStringLiteral("\\SHUT\\game.gb"));
        }
        folder.setMode(QStringLiteral("shut"), 0755);
        QCOMPARE(real, at("/shut/game.gb"));
    }
    void a_file_to_create_has_its_name_as_spelled_in_the_folder_that_is_there() {
        const auto created = [this](const QString& relative) {
            return Paths::realToCreate(folder.path() + relative);
        };
        folder.write(QStringLiteral("Made/PLAIN.GB"), "x");
        QCOMPARE(created(QStringLiteral("\\made\\plain.gb")), at("/Made/plain.gb"));
        QCOMPARE(created(QStringLiteral("\\made\\PLAIN.GB")), at("/Made/PLAIN.GB"));
        QCOMPARE(created(QStringLiteral("\\MADE/new.gb")), at("/Made/new.gb"));
        QCOMPARE(created(QStringLiteral("\\none\\new.gb")), at("/none/new.gb"));
        QCOMPARE(created(Paths::spelled("/made/\xFF\\.gb")), at("/Made/\xFF\\.gb"));
        QCOMPARE(Paths::realToCreate(QStringLiteral("plain.gb")), QByteArray("plain.gb"));
        QCOMPARE(Paths::realToCreate(QStringLiteral("\\plain.gb")), QByteArray("/plain.gb"));
        QCOMPARE(Paths::realToCreate(QString()), QByteArray());
    }
    void a_far_too_long_path_stays_as_spelled() {
        const QString name(5000, QLatin1Char('n'));
        QCOMPARE(realOf(QLatin1Char('\\') + name), at("/") + name.toLatin1());
    }
};

TORVANE_APPLESS_TEST(PathsTest)
#include "PathsTest.moc"

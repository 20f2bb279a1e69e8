// SPDX-License-Identifier: MIT
// The folder of the screenshots: it is shown, and chosen by a save dialog.
#include "platform/base/Paths.h"
#include "support/Failing.h"
#include "support/OpenedSettings.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class ConfGenFolderTest : public OpenedSettings {
    Q_OBJECT

    const QString home = QDir::homePath();

    void show() const { click(window().ChameleonButton2); }
    void choose(const QString& answer) const {
        dialogs().answer = answer;
        click(window().ChameleonButton17);
    }
    QString folder() const { return world().setting("Capturas"); }
    QString homeProposal() const {
        return home + (home.endsWith(u'/') ? u""_s : u"\\"_s) + u"Este Directorio"_s;
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // Showing
    void without_a_folder_the_long_spanish_sentence_is_shown_in_every_language() {
        openOptions();
        show();
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), u"No hay seleccionado. Por favor, elige uno para usar esta utilidad."_s);
        QCOMPARE(messages().boxes.last().flags, 64);
        QCOMPARE(messages().boxes.last().title, u"Torvane 1.1"_s);
        QCOMPARE(folder(), u"(absent)"_s);
    }
    void the_title_of_the_folder_is_the_same_in_every_version() {
        openOptions();
        opened->program->globals.setVersion(u"9.9"_s);
        show();
        QCOMPARE(messages().boxes.last().title, u"Torvane 1.1"_s);
    }
    void the_stored_folder_is_shown_as_it_is_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("path") << u"C:\\My Shots\\"_s << u"C:\\My Shots\\"_s;
        QTest::newRow("markup") << u"/<b>%1</b>&amp;/"_s << u"/<b>%1</b>&amp;/"_s;
        QTest::newRow("no UTF-8") << Paths::spelled("/a/\xF1/") << u"/a/\uFFFD/"_s;
        QTest::newRow("two lines") << u"/a\nb/"_s << u"/a\nb/"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void the_stored_folder_is_shown_as_it_is() {
        QFETCH(QString, stored);
        world().setSetting("Capturas", stored);
        openOptions();
        show();
        QTEST(messages().last(), "shown");
        QCOMPARE(folder(), stored);
    }

    // Choosing
    void the_dialog_proposes_a_file_that_is_not_there_in_the_stored_folder() {
        world().folder.makeFolder(u"shots"_s);
        world().setSetting("Capturas", world().appPath() + u"\\shots\\"_s);
        openOptions();
        choose({});
        QCOMPARE(dialogs().questions.size(), 1);
        const FileQuestion& question = dialogs().questions.first();
        QCOMPARE(question.title, u"Selecciona Directorio"_s);
        QCOMPARE(question.fileName, world().appPath() + u"\\shots\\Este Directorio"_s);
        QCOMPARE(question.filter, QString());
    }
    void without_a_folder_that_is_there_it_starts_in_the_users_home_data() {
        QTest::addColumn<QString>("stored");
        QTest::newRow("never chosen") << u"(absent)"_s;
        QTest::newRow("gone") << u"/no/such/folder/"_s;
        QTest::newRow("a file") << u"HERE/emuladores/emus.dat"_s;
        QTest::newRow("empty") << QString();
    }
    void without_a_folder_that_is_there_it_starts_in_the_users_home() {
        QFETCH(QString, stored);
        if (stored != u"(absent)"_s)
            world().setSetting("Capturas", stored.replace(u"HERE"_s, world().appPath()));
        openOptions();
        choose({});
        QCOMPARE(dialogs().questions.first().fileName, homeProposal());
    }
    void the_chosen_folder_is_stored_with_its_closing_separator_and_shown() {
        openOptions();
        choose(u"/home/ana/My Shots/Este Directorio"_s);
        QCOMPARE(folder(), u"/home/ana/My Shots/"_s);
        show();
        QCOMPARE(messages().last(), u"/home/ana/My Shots/"_s);
    }
    void a_cancelled_dialog_leaves_the_folder_unchanged_data() {
        QTest::addColumn<QString>("stored");
        QTest::newRow("there") << u"HERE/data/"_s;
        QTest::newRow("gone") << u"/no/such/folder/"_s;
        QTest::newRow("without a separator") << u"HERE/data"_s;
        QTest::newRow("never chosen") << u"(absent)"_s;
    }
    void a_cancelled_dialog_leaves_the_folder_unchanged() {
        QFETCH(QString, stored);
        stored.replace(u"HERE"_s, world().appPath());
        if (stored != u"(absent)"_s) world().setSetting("Capturas", stored);
        openOptions();
        const QByteArray before = settingsBytes();
        choose({});
        QCOMPARE(folder(), stored);
        QCOMPARE(settingsBytes(), before);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void another_name_is_stored_whole_as_the_folder() {
        openOptions();
        choose(u"/home/ana/shot.png"_s);
        QCOMPARE(folder(), u"/home/ana/shot.png"_s);
    }
    void a_file_that_is_there_is_stored_whole_and_keeps_its_content() {
        const QString file = world().folder.write(u"shot.png"_s, "picture");
        openOptions();
        choose(file);
        QCOMPARE(folder(), file);
        QCOMPARE(world().folder.read(u"shot.png"_s), "picture"_ba);
        click(window().ChameleonButton17);
        QCOMPARE(dialogs().questions.last().fileName, homeProposal());
    }
    void a_folder_without_rights_is_stored_and_proposed_again() {
        QCOMPARE(mkdir(world().folder.native("closed"), 0), 0);
        openOptions();
        choose(world().appPath() + u"/closed/Este Directorio"_s);
        QCOMPARE(folder(), world().appPath() + u"/closed/"_s);
        click(window().ChameleonButton17);
        QCOMPARE(dialogs().questions.last().fileName, world().appPath() + u"/closed/Este Directorio"_s);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_folder_whose_name_is_no_utf_8_keeps_its_bytes() {
        QCOMPARE(mkdir(world().folder.native("sh\xF1ts"), 0777), 0);
        const QString path = Paths::spelled(world().folder.native("sh\xF1ts/"));
        openOptions();
        choose(path + u"Este Directorio"_s);
        QCOMPARE(folder(), path);
        QCOMPARE(Paths::real(folder()), world().folder.native("sh\xF1ts/"));
        click(window().ChameleonButton17);
        QCOMPARE(dialogs().questions.last().fileName, homeProposal());
    }
    void the_gallery_shows_the_chosen_folder() {
        world().folder.write(u"shots/a.png"_s, "x");
        openOptions();
        choose(world().appPath() + u"/shots/Este Directorio"_s);
        opened->program->desk.go(Window::MainFrm, Window::Compartir);
        QCOMPARE(loaded<Compartir>()->Snap.rowCount(), 1);
    }

    // Failures of the dialog
    void a_dialog_that_fails_opens_again_with_the_folder_of_that_moment() {
        openOptions();
        dialogs().failures = 1;
        choose(u"/chosen/Este Directorio"_s);
        QCOMPARE(dialogs().questions.size(), 2);
        QCOMPARE(dialogs().questions[1].fileName, dialogs().questions[0].fileName);
        QCOMPARE(folder(), u"/chosen/"_s);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_dialog_that_fails_for_ever_is_reported_after_the_second_time_and_changes_nothing() {
        world().setSetting("Capturas", u"/old/"_s);
        openOptions();
        dialogs().failures = 1000;
        choose(u"/chosen/Este Directorio"_s);
        QCOMPARE(dialogs().questions.size(), 2);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(u"57"_s), qPrintable(messages().last()));
        QCOMPARE(folder(), u"/old/"_s);
        QCOMPARE(world().ends, 0);
        QVERIFY(window().isVisible());
        dialogs().failures = 0;
        choose(u"/chosen/Este Directorio"_s);
        QCOMPARE(folder(), u"/chosen/"_s);
    }
};

TORVANE_TEST(ConfGenFolderTest)
#include "ConfGenFolderTest.moc"

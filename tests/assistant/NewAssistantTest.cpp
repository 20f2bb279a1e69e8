// SPDX-License-Identifier: MIT
// The pages of the assistant: what each shows, and the ways between them.
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class NewAssistantTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;
    NewAssistant& window() const { return opened->assistant(); }
    /// Which of the controls that are not always shown the user sees.
    QStringList seen() const {
        QStringList names;
        for (const QWidget* control : std::initializer_list<const QWidget*>{
                 &window().AddFile, &window().AddDir, &window().ChameleonButton5, &window().ChameleonButton6,
                 &window().FilePath, &window().Browse, &window().Label2}) {
            if (isSeen(*control)) names << control->objectName();
        }
        return names;
    }
    bool shows(const Image& image) const {
        return !image.Picture().isNull() && window().picture().toImage() == image.Picture().toImage();
    }
    void expectWelcome() {
        QCOMPARE(opened->typed(), opened->said("f1"));
        QCOMPARE(seen(), QStringList());
        QVERIFY(window().chameleonButton1.Enabled() && window().chameleonButton3.Enabled());
        QVERIFY(shows(window().One));
    }
    void expectChoice() {
        QCOMPARE(opened->typed(), opened->page("f2", "f3", "f4"));
        QCOMPARE(seen(), (QStringList{u"AddFile"_s, u"AddDir"_s}));
        QVERIFY(!window().chameleonButton1.Enabled() && window().chameleonButton3.Enabled());
        QVERIFY(shows(window().Two));
    }
    void expectFile() {
        QCOMPARE(opened->typed(), opened->said("f12"));
        QCOMPARE(seen(), (QStringList{u"AddFile"_s, u"FilePath"_s, u"Browse"_s}));
        QVERIFY(!window().AddFile.isEnabled());
        QVERIFY(window().chameleonButton1.Enabled());
        QVERIFY(shows(window().Two));
    }
    void expectFailure() {
        QCOMPARE(opened->typed(), opened->said("f8"));
        QVERIFY(shows(window().Four));
        QCOMPARE(seen(), (QStringList{u"AddFile"_s, u"FilePath"_s, u"Browse"_s}));
        QVERIFY(window().chameleonButton1.Enabled());
    }
    void expectQuestion(const char* firstKey) {
        QCOMPARE(opened->typed(), opened->page(firstKey, "f6", "f7"));
        QCOMPARE(seen(), (QStringList{u"ChameleonButton5"_s, u"ChameleonButton6"_s}));
        QVERIFY(!window().chameleonButton1.Enabled() && !window().chameleonButton3.Enabled());
        QVERIFY(shows(window().Three));
    }
    void expectDone(const char* key) {
        QCOMPARE(opened->typed(), opened->said(key));
        QCOMPARE(seen(), QStringList());
        QCOMPARE(window().chameleonButton1.Caption(), opened->said("finish"));
        QVERIFY(window().chameleonButton1.Enabled() && window().chameleonButton3.Enabled());
    }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    // Opening
    void an_empty_library_opens_the_assistant_beside_the_main_window() {
        opened->openAssistant();
        QVERIFY(opened->main().isVisible() && window().isVisible());
        QCOMPARE(window().windowHandle()->transientParent(), opened->main().windowHandle());
        expectWelcome();
    }
    void a_library_with_a_game_does_not_open_the_assistant() {
        opened->games(1);
        opened->open();
        QVERIFY(!opened->isThere());
    }

    // Ways
    void forward_leads_from_the_welcome_to_the_choice() {
        opened->openAssistant();
        opened->goToChoice();
        expectChoice();
    }
    void first_leads_from_the_welcome_to_the_choice_too() {
        opened->openAssistant();
        click(window().chameleonButton3);
        expectChoice();
    }
    void the_choice_of_one_file_asks_for_it() {
        opened->openAssistant();
        opened->goToFile();
        expectFile();
    }
    void browse_asks_for_games_and_shows_the_name() {
        opened->openAssistant();
        opened->goToFile();
        const QString path = opened->original(u"a.gb"_s);
        opened->browse(path);
        const FileQuestion& question = opened->dialogs().questions.last();
        QCOMPARE(question.title, opened->said("f14"));
        QCOMPARE(question.filter, u"Juegos de GameBoy|*.gba;*.gbc;*.gb;*.agb;*.cgb;*.zip;*.bin|Todos los "
                                  "Archivos|*.*"_s);
        QCOMPARE(window().FilePath.Text(), path);
        expectFile();
    }
    void a_cancelled_browse_shows_the_failure_and_stays_data() {
        QTest::addColumn<QString>("answer");
        QTest::newRow("nothing") << QString();
        QTest::newRow("a blank") << u" "_s;
    }
    void a_cancelled_browse_shows_the_failure_and_stays() {
        QFETCH(QString, answer);
        opened->openAssistant();
        opened->goToFile();
        opened->browse(answer);
        expectFailure();
        QCOMPARE(window().FilePath.Text(), u"C:\\"_s);
    }
    void forward_with_no_file_chosen_fails_and_stays() {
        opened->openAssistant();
        opened->goToFile();
        click(window().chameleonButton1);
        expectFailure();
        QCOMPARE(opened->library(), QStringList());
    }
    void forward_with_a_missing_file_fails_and_the_user_can_browse_again() {
        opened->openAssistant();
        opened->goToFile();
        opened->browse(opened->world.folder.path(u"none.gb"_s));
        click(window().chameleonButton1);
        expectFailure();
        opened->browse(opened->original(u"a.gb"_s));
        click(window().chameleonButton1);
        expectQuestion("f5");
    }
    void a_copied_file_leads_to_the_question() {
        opened->openAssistant();
        opened->copyFile(opened->original(u"a.gb"_s, "bytes"));
        expectQuestion("f5");
        QCOMPARE(opened->bytesOf(u"a.gb"_s), QByteArray("bytes"));
        // The second click on Forward must do nothing.
        click(window().chameleonButton1);
        expectQuestion("f5");
    }
    void delete_removes_the_original_of_a_file() {
        opened->openAssistant();
        opened->copyFile(opened->original(u"a.gb"_s));
        click(window().ChameleonButton5);
        expectDone("f9");
        QVERIFY(!opened->exists(u"from/a.gb"_s));
        QCOMPARE(opened->library(), QStringList{u"a.gb"_s});
    }
    void keep_leaves_the_original_of_a_file() {
        opened->openAssistant();
        opened->copyFile(opened->original(u"a.gb"_s));
        click(window().ChameleonButton6);
        expectDone("f11");
        QVERIFY(opened->exists(u"from/a.gb"_s));
    }
    void a_copied_folder_leads_to_the_question_for_several() {
        opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        expectQuestion("f5b");
        QCOMPARE(opened->library(), QStringList{u"a.gb"_s});
    }
    void delete_removes_only_the_games_of_the_folder() {
        opened->original(u"a.gb"_s);
        opened->original(u"b.bin"_s);
        opened->original(u"notes.txt"_s);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        click(window().ChameleonButton5);
        expectDone("f10");
        QCOMPARE(opened->world.folder.entries(u"from"_s), QStringList{u"notes.txt"_s});
        QCOMPARE(opened->library(), (QStringList{u"a.gb"_s, u"b.bin"_s}));
    }
    void keep_leaves_the_folder() {
        opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        click(window().ChameleonButton6);
        expectDone("f11");
        QVERIFY(opened->exists(u"from/a.gb"_s));
    }
    void a_folder_without_games_copies_nothing_and_still_goes_on() {
        opened->original(u"notes.txt"_s);
        opened->openAssistant();
        const int width = window().barra.width();
        opened->copyFolder(opened->from());
        expectQuestion("f5b");
        QCOMPARE(opened->library(), QStringList());
        QCOMPARE(window().barra.width(), width);
        click(window().ChameleonButton5);
        expectDone("f10");
        QVERIFY(opened->exists(u"from/notes.txt"_s));
    }
    void a_cancelled_folder_dialog_changes_nothing() {
        opened->openAssistant();
        opened->copyFolder(QString());
        QCOMPARE(opened->dialogs().questions.size(), 1);
        QCOMPARE(opened->dialogs().questions.last().title, opened->said("f12"));
        expectChoice();
    }
    void finish_closes_the_assistant() {
        opened->openAssistant();
        opened->copyFile(opened->original(u"a.gb"_s));
        click(window().ChameleonButton6);
        click(window().chameleonButton1);
        QVERIFY(!opened->isThere());
    }
    void first_leads_from_the_end_back_to_the_choice() {
        opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        click(window().ChameleonButton6);
        click(window().chameleonButton3);
        expectChoice();
        QCOMPARE(window().chameleonButton1.Caption(), opened->said("next"));
    }
    void the_area_of_one_file_is_disabled_after_its_first_use_until_the_window_is_reopened() {
        opened->openAssistant();
        opened->goToFile();
        click(window().chameleonButton3);
        QVERIFY(isSeen(window().AddFile) && isSeen(window().AddDir));
        click(window().AddFile);
        QVERIFY(!isSeen(window().FilePath));
        QVERIFY(!window().chameleonButton1.Enabled());
        opened->original(u"a.gb"_s);
        opened->dialogs().answer = opened->from();
        click(window().AddDir);
        expectQuestion("f5b");
    }
    void the_area_of_a_folder_stays_enabled() {
        opened->original(u"a.gb"_s);
        opened->openAssistant();
        opened->copyFolder(opened->from());
        click(window().ChameleonButton6);
        click(window().chameleonButton3);
        click(window().AddDir);
        expectQuestion("f5b");
    }
    void exit_closes_the_assistant_on_every_page_data() {
        QTest::addColumn<int>("page");
        for (int page = 0; page < 5; ++page) QTest::addRow("page %d", page) << page;
    }
    void exit_closes_the_assistant_on_every_page() {
        QFETCH(int, page);
        const QString path = opened->original(u"a.gb"_s);
        opened->openAssistant();
        if (page == 1) opened->goToChoice();
        if (page == 2) opened->goToFile();
        if (page >= 3) opened->copyFile(path);
        if (page == 4) click(window().ChameleonButton6);
        page % 2 == 0 ? click(window().ChameleonButton2) : static_cast<void>(window().close());
        QVERIFY(!opened->isThere());
        QVERIFY(opened->main().isVisible());
    }
    void closing_lists_the_new_games_in_the_main_window() {
        opened->openAssistant();
        opened->copyFile(opened->original(u"a.gb"_s));
        QCOMPARE(opened->main().ListView1.rowCount(), 0);
        click(window().ChameleonButton2);
        QCOMPARE(opened->main().ListView1.rowCount(), 1);
        QCOMPARE(opened->main().Games.FileName(), u"a.gb"_s);
        QCOMPARE(opened->main().TotalRom.Caption(), u"0001"_s);
    }
};

TORVANE_TEST(NewAssistantTest)
#include "NewAssistantTest.moc"

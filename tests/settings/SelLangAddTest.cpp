// SPDX-License-Identifier: MIT
// Adding a language file: what is asked, what is copied, and what happens where it can't be.
#include "settings/LanguageFiles.h"
#include "support/OpenedLanguages.h"
#include "support/OtherProgram.h"
#include "support/TestMain.h"

#include <filesystem>

using namespace torvane;
using namespace Qt::StringLiterals;

class SelLangAddTest : public OpenedLanguages {
    Q_OBJECT

    QString outside(const QString& name, const QByteArray& bytes = fileOf("Out")) const {
        return opened->world.folder.write(u"outside/"_s + name, bytes);
    }
    QString link(const QString& name, const QByteArray& target) const {
        const QString path = opened->world.folder.path(u"outside/"_s + name);
        std::filesystem::create_symlink(target.toStdString(), path.toStdString());
        return path;
    }
    // One box with this number, after which the program and the window go on; no file has come or changed.
    void checkFailed(int number, const QByteArray& cat) const {
        QCOMPARE(messages().boxes.size(), 1);
        const QString ending = u"(%1)"_s.arg(number);
        QVERIFY2(messages().last().endsWith(ending), qPrintable(messages().last()));
        QCOMPARE(messages().boxes.first().flags, 16);
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
        QCOMPARE(entries(), QStringList({u"lang_cat.tvl"_s, u"lang_eng.tvl"_s, u"lang_esp.tvl"_s}));
        QCOMPARE(read(u"lang_cat.tvl"_s), cat);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void it_asks_for_a_language_file() {
        openLanguages();
        add({});
        QCOMPARE(opened->world.dialogs.questions.size(), 1);
        const FileQuestion& question = opened->world.dialogs.questions.first();
        QCOMPARE(question.title, u"Torvane 1.1 » LangFile Loader"_s);
        QCOMPARE(question.filter, u"Torvane 1.1 LangFiles|*.tvl"_s);
    }
    void the_title_of_the_dialog_is_the_same_in_every_version() {
        openLanguages();
        opened->program->globals.setVersion(u"9.9"_s);
        add({});
        QCOMPARE(opened->world.dialogs.questions.first().title, u"Torvane 1.1 » LangFile Loader"_s);
    }
    void without_a_name_nothing_is_added_and_the_list_is_read_again_data() {
        QTest::addColumn<QString>("answer");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("a blank") << u" "_s;
    }
    void without_a_name_nothing_is_added_and_the_list_is_read_again() {
        QFETCH(QString, answer);
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        write(u"meanwhile.tvl"_s, fileOf("M"));
        add(answer);
        QCOMPARE(rows().size(), 4);
        QCOMPARE(window().File1.ListIndex(), -1);
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_file_is_copied_byte_for_byte_under_its_own_name_and_listed() {
        const QByteArray bytes = fileOf("Out") + QByteArray("\0\xFF\r\n", 4);
        openLanguages();
        add(outside(u"out.tvl"_s, bytes));
        QCOMPARE(read(u"out.tvl"_s), bytes);
        QCOMPARE(opened->world.folder.read(u"outside/out.tvl"_s), bytes);
        QVERIFY(rows().contains(u"out.tvl"_s));
        choose(u"out.tvl"_s);
        QCOMPARE(lines().first(), u"Out name: Outish"_s);
    }
    void a_file_of_that_name_is_replaced_without_a_question() {
        openLanguages();
        add(outside(u"lang_cat.tvl"_s));
        QCOMPARE(read(u"lang_cat.tvl"_s), fileOf("Out"));
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(entries().size(), 3);
    }
    void a_file_of_the_same_name_in_other_letters_stays_beside_it() {
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        openLanguages();
        add(outside(u"LANG_Cat.tvl"_s));
        QCOMPARE(read(u"LANG_Cat.tvl"_s), fileOf("Out"));
        QCOMPARE(read(u"lang_cat.tvl"_s), cat);
        QCOMPARE(rows().size(), 4);
    }
    void the_current_file_can_be_replaced() {
        openLanguages();
        add(outside(u"lang_eng.tvl"_s, "[SelLang]\r\nload=Fetch\r\n"));
        click(window().chameleonButton1);
        openLanguages();
        QCOMPARE(window().ChameleonButton2.Caption(), u"Fetch"_s);
    }

    void a_file_of_the_folder_itself_is_a_failure_and_stays_unharmed_data() {
        QTest::addColumn<QString>("way");
        QTest::newRow("as the list spells it") << u"\\data\\lang\\lang_cat.tvl"_s;
        QTest::newRow("as the desktop spells it") << u"/data/lang/lang_cat.tvl"_s;
        QTest::newRow("by another spelling of the folder") << u"\\DATA\\Lang\\lang_cat.tvl"_s;
        QTest::newRow("by a detour") << u"/data/../data/lang/./lang_cat.tvl"_s;
        QTest::newRow("by a link to it") << u"/outside/lang_cat.tvl"_s;
        QTest::newRow("by a link to the folder") << u"/outside/folder/lang_cat.tvl"_s;
    }
    void a_file_of_the_folder_itself_is_a_failure_and_stays_unharmed() {
        QFETCH(QString, way);
        opened->world.folder.makeFolder(u"outside"_s);
        link(u"lang_cat.tvl"_s, "../data/lang/lang_cat.tvl");
        link(u"folder"_s, "../data/lang");
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        openLanguages();
        add(opened->world.appPath() + way);
        checkFailed(70, cat);
        QVERIFY(cat.size() > 1000);
        QCOMPARE(rows().size(), 3);
    }
    void a_file_that_is_not_there_or_no_file_is_reported_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("number");
        QTest::newRow("missing") << u"lang_cat.tvl.gone"_s << 53;
        QTest::newRow("folder") << u"folder"_s << 75;
        QTest::newRow("pipe") << u"pipe"_s << 75;
        QTest::newRow("unreadable") << u"closed.tvl"_s << 70;
    }
    void a_file_that_is_not_there_or_no_file_is_reported() {
        QFETCH(QString, name);
        QFETCH(int, number);
        opened->world.folder.makeFolder(u"outside/folder"_s);
        mkfifo(opened->world.folder.native("outside/pipe").constData(), 0666);
        outside(u"closed.tvl"_s);
        opened->world.folder.setMode(u"outside/closed.tvl"_s, 0);
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        openLanguages();
        {
            const OrdinaryUser user;
            add(opened->world.folder.path(u"outside/"_s + name));
        }
        checkFailed(number, cat);
    }
    void a_read_only_folder_is_reported_and_nothing_is_lost() {
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        const QString path = outside(u"lang_cat.tvl"_s);
        openLanguages();
        opened->world.folder.setMode(files, 0555);
        {
            const OrdinaryUser user;
            add(path);
        }
        opened->world.folder.setMode(files, 0755);
        checkFailed(70, cat);
    }
    void a_full_disk_is_reported_and_nothing_is_lost() {
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        const QString path = outside(u"lang_cat.tvl"_s, QByteArray(5000, 'x'));
        openLanguages();
        {
            const FullDisk disk(4000);
            add(path);
        }
        checkFailed(61, cat);
    }
    void a_missing_folder_is_reported_by_its_name() {
        const QString own = outside(u"own.tvl"_s);
        opened->world.setSetting("Language", own);
        QVERIFY(QDir(opened->world.folder.path(files)).removeRecursively());
        openLanguages();
        add(own);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), u"lang: it doesn’t exist (53)"_s);
        QCOMPARE(opened->world.ends, 0);
    }
    void killed_in_the_middle_it_leaves_the_old_file_and_the_next_start_removes_the_rest() {
        const QByteArray cat = read(u"lang_cat.tvl"_s);
        const QString path = outside(u"lang_cat.tvl"_s, QByteArray(100000, 'x'));
        const Globals globals{opened->world.appPath(), {}, {}, {}, {}};
        const int status = inOtherProgram([&] {
            const rlimit limit{50000, RLIM_INFINITY};
            setrlimit(RLIMIT_FSIZE, &limit);
            LanguageFiles::add(globals, path);
        });
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGXFSZ);
        QCOMPARE(entries().size(), 4);
        opened->open();
        opened->program->funciones.sweepLeftovers();
        QCOMPARE(entries(), QStringList({u"lang_cat.tvl"_s, u"lang_eng.tvl"_s, u"lang_esp.tvl"_s}));
        QCOMPARE(read(u"lang_cat.tvl"_s), cat);
    }

    void a_name_of_any_kind_is_added_listed_described_loaded_and_deleted_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("dots") << QByteArray("lang.my.own.tvl");
        QTest::newRow("blanks") << QByteArray(" my  own .tvl");
        QTest::newRow("quotes") << QByteArray("\"my\" 'own'.tvl");
        QTest::newRow("markup") << QByteArray("<b>&amp;$(x);%1.tvl");
        QTest::newRow("no UTF-8") << QByteArray("\xFF\xFEown.tvl");
        QTest::newRow("accents") << QByteArray("ñandú.TVL");
        QTest::newRow("backslash") << QByteArray("my\\own.tvl");
        QTest::newRow("extension only") << QByteArray("own.old.Tvl");
    }
    void a_name_of_any_kind_is_added_listed_described_loaded_and_deleted() {
        QFETCH(QByteArray, name);
        opened->world.folder.makeFolder(u"outside"_s);
        openLanguages();
        add(opened->world.folder.writeNative("outside/" + name, fileOf("Own")));
        QCOMPARE(rows().size(), 4);
        const QString listed = rows().at(rows().indexOf(NativeText::fromNative(name)));
        QVERIFY(
            std::filesystem::exists(opened->world.folder.native(files.toUtf8() + '/' + name).toStdString()));
        choose(listed);
        QCOMPARE(lines().first(), u"Own name: Ownish"_s);
        clickLoad();
        QCOMPARE(messages().last(), u"Own is loaded"_s);
        restart();
        QVERIFY(loaded<MainFrm>() != nullptr);
        QCOMPARE(opened->program->globals.LanguageName, u"Ownish"_s);
        openLanguages();
        choose(listed);
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(entries().size(), 3);
    }
    void after_a_failed_addition_the_list_is_read_again() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        write(u"meanwhile.tvl"_s, fileOf("M"));
        add(spelled(u"lang_cat.tvl"_s));
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(rows().size(), 4);
        QCOMPARE(window().File1.ListIndex(), -1);
    }
};

TORVANE_TEST(SelLangAddTest)
#include "SelLangAddTest.moc"

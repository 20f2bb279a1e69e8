// SPDX-License-Identifier: MIT
// The choice of the language: what is listed and described, how a file becomes the current one, and how files
// are deleted.
#include "support/CutCaptions.h"
#include "support/OpenedLanguages.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class SelLangTest : public OpenedLanguages {
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void it_lists_the_language_files_by_name_and_no_others() {
        write(u"notes.txt"_s, "mine");
        write(u"extra.TVL"_s, fileOf("X"));
        openLanguages();
        QCOMPARE(rows(),
                 QStringList({u"extra.TVL"_s, u"lang_cat.tvl"_s, u"lang_eng.tvl"_s, u"lang_esp.tvl"_s}));
        QCOMPARE(window().File1.ListIndex(), -1);
    }
    void its_words_are_those_of_the_language_and_no_file_is_described_yet() {
        openLanguages();
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » Select language"_s);
        QCOMPARE(window().ChameleonButton2.Caption(), u"Load"_s);
        QCOMPARE(window().ChameleonButton4.Caption(), u"Add"_s);
        QCOMPARE(window().ChameleonButton3.Caption(), u"Delete"_s);
        QCOMPARE(window().ChameleonButton17.Caption(), u"More languages"_s);
        QCOMPARE(lines(), QStringList({QString(), QString(), QString()}));
    }
    void the_list_has_the_focus_at_first() {
        openLanguages();
        QTest::keyClick(window().windowHandle(), Qt::Key_Down);
        QCOMPARE(window().File1.ListIndex(), 0);
        QCOMPARE(lines().first(), u"Llengua: Català"_s);
    }
    void every_caption_fits_whatever_language_is_chosen_and_described_data() {
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"esp", "cat", "eng"}) QTest::newRow(language) << QByteArray(language);
    }
    void every_caption_fits_whatever_language_is_chosen_and_described() {
        QFETCH(QByteArray, language);
        opened->world.useLanguage(language.constData());
        openLanguages();
        CutCaptions cut;
        for (const QString& name : rows()) {
            choose(name);
            QCOMPARE(cut.check(window()), 8);
        }
        QCOMPARE(cut.found.join(u'\n'), QString());
    }
    void a_click_shows_what_the_file_says_of_itself_in_its_own_words() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        QCOMPARE(lines(),
                 QStringList({u"Llengua: Català"_s, u"Autors: L’equip de Torvane"_s, u"Regió: Catalunya"_s}));
        choose(u"lang_eng.tvl"_s);
        QCOMPARE(lines().first(), u"Language: English"_s);
        QCOMPARE(opened->program->globals.LanguageFile, spelled(u"lang_eng.tvl"_s));
    }
    void the_arrow_keys_show_the_next_file() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        QTest::keyClick(window().windowHandle(), Qt::Key_Down);
        QCOMPARE(lines().first(), u"Language: English"_s);
    }
    void a_file_whose_keys_are_missing_gives_three_lines_of_one_blank_each_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("another section") << QByteArray("[About]\r\ntitle=x\r\n");
        QTest::newRow("an empty section") << QByteArray("[FileInfo]\r\n");
        QTest::newRow("nothing") << QByteArray();
    }
    void a_file_whose_keys_are_missing_gives_three_lines_of_one_blank_each() {
        QFETCH(QByteArray, bytes);
        write(u"bare.tvl"_s, bytes);
        openLanguages();
        choose(u"bare.tvl"_s);
        QCOMPARE(lines(), QStringList({u" "_s, u" "_s, u" "_s}));
        clickLoad();
        QCOMPARE(messages().last(), QString());
        QCOMPARE(opened->world.setting("Language"), spelled(u"bare.tvl"_s));
    }

    void load_makes_the_file_the_current_one_says_so_in_the_new_language_and_closes() {
        write(u"new.tvl"_s, fileOf("New"));
        openLanguages();
        choose(u"new.tvl"_s);
        clickLoad();
        QCOMPARE(opened->world.setting("Language"), spelled(u"new.tvl"_s));
        QCOMPARE(opened->program->globals.LanguageFile, spelled(u"new.tvl"_s));
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), u"New is loaded"_s);
        QCOMPARE(messages().boxes.first().title, u"LangFile Loaded"_s);
        QCOMPARE(messages().boxes.first().flags, 64);
        QVERIFY(loaded<SelLang>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void open_windows_keep_their_texts_and_the_next_one_has_those_of_the_new_language() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        clickLoad();
        QCOMPARE(main().Lbl_ID3Title.Caption(), u"Game title"_s);
        openLanguages();
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » Selecciona la llengua"_s);
        click(window().chameleonButton1);
        restart();
        QCOMPARE(main().Lbl_ID3Title.Caption(), u"Títol del joc"_s);
        QCOMPARE(opened->program->globals.LanguageName, u"Català"_s);
    }
    void load_with_nothing_clicked_stores_the_folder_and_shows_an_empty_box() {
        openLanguages();
        clickLoad();
        QCOMPARE(opened->world.setting("Language"), folder() + u'\\');
        QCOMPARE(opened->program->globals.LanguageFile, folder() + u'\\');
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), QString());
        QCOMPARE(messages().boxes.first().title, u"LangFile Loaded"_s);
        QVERIFY(loaded<SelLang>() == nullptr);
        openLanguages();
        QCOMPARE(window().ChameleonButton2.Caption(), QString());
        QCOMPARE(rows().size(), 3);
    }
    void after_load_with_nothing_clicked_the_next_start_asks_for_the_language() {
        openLanguages();
        clickLoad();
        restart();
        QVERIFY(loaded<SelLangStartUp>() != nullptr && loaded<SelLangStartUp>()->isVisible());
        QVERIFY(loaded<MainFrm>() == nullptr);
    }
    void after_the_list_was_read_again_load_stores_the_folder_and_shows_the_sentence_of_the_last_click() {
        openLanguages();
        choose(u"lang_esp.tvl"_s);
        add({});
        clickLoad();
        QCOMPARE(opened->world.setting("Language"), folder() + u'\\');
        QVERIFY(messages().last().startsWith(u"A partir de ahora"_s));
    }
    void settings_that_cannot_be_written_are_reported_and_the_language_stays_data() {
        QTest::addColumn<bool>("isDiskFull");
        QTest::addColumn<int>("number");
        QTest::newRow("full disk") << true << 61;
        QTest::newRow("folder without rights") << false << 70;
    }
    void settings_that_cannot_be_written_are_reported_and_the_language_stays() {
        QFETCH(bool, isDiskFull);
        QFETCH(int, number);
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        if (isDiskFull) {
            const FullDisk disk(1);
            clickLoad();
        } else {
            opened->world.folder.setMode(u"config/Torvane"_s, 0555);
            const OrdinaryUser user;
            clickLoad();
        }
        opened->world.folder.setMode(u"config/Torvane"_s, 0755);
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().endsWith(u"(%1)"_s.arg(number)), qPrintable(messages().last()));
        QCOMPARE(opened->world.ends, 0);
        QCOMPARE(opened->program->globals.LanguageFile, spelled(u"lang_eng.tvl"_s));
        QCOMPARE(opened->world.setting("Language"), spelled(u"lang_eng.tvl"_s));
        QVERIFY(window().isVisible());
    }

    void delete_asks_first() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        clickDelete(MsgBoxFlags::answerNo);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), opened->text("Globals", "suretodelete"));
        QCOMPARE(messages().boxes.first().title, u"Torvane 1.1"_s);
        QCOMPARE(messages().boxes.first().flags, 36);
        QCOMPARE(entries().size(), 3);
    }
    void a_yes_deletes_the_file_and_its_name_stays_until_the_window_is_opened_again() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(entries(), QStringList({u"lang_eng.tvl"_s, u"lang_esp.tvl"_s}));
        QVERIFY(rows().contains(u"lang_cat.tvl"_s));
        choose(u"lang_cat.tvl"_s);
        QCOMPARE(lines(), QStringList({u" "_s, u" "_s, u" "_s}));
        click(window().chameleonButton1);
        openLanguages();
        QCOMPARE(rows(), QStringList({u"lang_eng.tvl"_s, u"lang_esp.tvl"_s}));
    }
    void a_file_that_has_gone_is_reported_and_one_of_other_letters_stays() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        clickDelete(MsgBoxFlags::answerYes);
        write(u"LANG_CAT.TVL"_s, "mine");
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(read(u"LANG_CAT.TVL"_s), QByteArray("mine"));
        QVERIFY(messages().last().contains(u"lang_cat.tvl"_s) && messages().last().contains(u"(53)"_s));
        QCOMPARE(opened->world.ends, 0);
    }
    void delete_with_nothing_selected_is_reported_and_deletes_nothing() {
        openLanguages();
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(messages().boxes.size(), 2);
        QCOMPARE(messages().boxes.last().flags, 16);
        QCOMPARE(entries().size(), 3);
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
    }
    void a_file_that_was_clicked_before_the_list_was_read_again_is_not_deleted() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        add({});
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(entries().size(), 3);
        QCOMPARE(messages().boxes.last().flags, 16);
    }
    void a_window_that_is_closed_under_the_question_deletes_nothing() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        messages().whileOpen = [this] { window().Unload(); };
        clickDelete(MsgBoxFlags::answerYes);
        QCOMPARE(entries().size(), 3);
        QCOMPARE(messages().boxes.size(), 1);
    }
    void the_title_of_the_question_is_the_same_in_every_version() {
        openLanguages();
        opened->program->globals.setVersion(u"9.9"_s);
        clickDelete(MsgBoxFlags::answerNo);
        QCOMPARE(messages().boxes.first().title, u"Torvane 1.1"_s);
    }
    void without_the_current_file_there_are_no_texts_and_the_next_start_asks_for_the_language() {
        openLanguages();
        choose(u"lang_eng.tvl"_s);
        clickDelete(MsgBoxFlags::answerYes);
        click(window().chameleonButton1);
        openLanguages();
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » "_s);
        QCOMPARE(opened->world.setting("Language"), spelled(u"lang_eng.tvl"_s));
        restart();
        QVERIFY(loaded<SelLangStartUp>() != nullptr && loaded<SelLangStartUp>()->isVisible());
    }
    void a_file_that_may_not_be_deleted_is_reported_and_stays() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        opened->world.folder.setMode(files, 0555);
        {
            const OrdinaryUser user;
            clickDelete(MsgBoxFlags::answerYes);
        }
        opened->world.folder.setMode(files, 0755);
        QCOMPARE(entries().size(), 3);
        QVERIFY(messages().last().contains(u"(70)"_s));
        QCOMPARE(opened->world.ends, 0);
    }

    void the_page_of_more_languages_opens_any_number_of_times_and_the_window_stays() {
        openLanguages();
        for (int i = 0; i < 2; ++i) click(window().ChameleonButton17);
        const QStringList& urls = opened->world.browser.urls;
        QCOMPARE(urls.size(), 2);
        QVERIFY2(urls.first().endsWith(u"/data/site/index-section-tv_langfiles.html"_s),
                 qPrintable(urls.first()));
        QVERIFY(window().isVisible());
    }
    void the_close_button_and_escape_close_it() {
        openLanguages();
        click(window().chameleonButton1);
        QVERIFY(loaded<SelLang>() == nullptr);
        openLanguages();
        QTest::keyClick(window().windowHandle(), Qt::Key_Escape);
        QVERIFY(loaded<SelLang>() == nullptr);
        QVERIFY(main().isVisible());
    }
    void without_its_folder_the_list_is_empty() {
        opened->world.setSetting("Language", opened->world.folder.write(u"own.tvl"_s, fileOf("Own")));
        QVERIFY(QDir(opened->world.folder.path(files)).removeRecursively());
        openLanguages();
        QCOMPARE(rows(), QStringList());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void the_window_is_there_until_the_box_is_answered_even_for_a_file_that_has_gone() {
        openLanguages();
        choose(u"lang_cat.tvl"_s);
        QVERIFY(QFile::remove(opened->world.folder.path(files + u"/lang_cat.tvl"_s)));
        bool wasThere = false;
        messages().whileOpen = [&] { wasThere = loaded<SelLang>() != nullptr && window().isVisible(); };
        clickLoad();
        QVERIFY(wasThere && loaded<SelLang>() == nullptr);
        QCOMPARE(messages().last(), QString());
        QCOMPARE(opened->world.setting("Language"), spelled(u"lang_cat.tvl"_s));
    }
};

TORVANE_TEST(SelLangTest)
#include "SelLangTest.moc"

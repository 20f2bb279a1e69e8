// SPDX-License-Identifier: MIT
// The captions of the windows in all three languages: they fit their controls, use the fonts that they were
// measured for, and come from the chosen language file.
#include "support/CutCaptions.h"
#include "support/TestMain.h"

#include <QFontInfo>

using namespace torvane;

class MainFrmCaptionsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;
    MainFrm& window() const { return opened->main(); }

    CutCaptions cut;
    int checkSeen(const QWidget& form, const QStringList& fromFiles = {}) {
        return cut.check(form, fromFiles);
    }
    static void languageRows() {
        QTest::addColumn<QByteArray>("code");
        for (const char* code : {"esp", "cat", "eng"}) QTest::newRow(code) << QByteArray(code);
    }
    void openIn(const QByteArray& code) {
        opened->world.useLanguage(code.constData());
        opened->game(QStringLiteral("a.gb"));
        opened->game(QStringLiteral("b.zip"));
        opened->open();
    }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        cut.found.clear();
    }
    void cleanup() { opened.reset(); }

    void the_stand_ins_of_all_fonts_are_installed_data() {
        QTest::addColumn<int>("face");
        for (const int face : {FontSpec::Verdana, FontSpec::MSSansSerif, FontSpec::Tahoma,
                               FontSpec::TrebuchetMS, FontSpec::CourierNew}) {
            QTest::newRow(Fonts::standIn(static_cast<FontSpec::Face>(face)).designFace) << face;
        }
    }
    void the_stand_ins_of_all_fonts_are_installed() {
        QFETCH(int, face);
        const auto named = static_cast<FontSpec::Face>(face);
        const Fonts::StandIn standIn = Fonts::standIn(named);
        const QFontInfo found(Fonts::of({named, 8.25}));
        QVERIFY2(found.family() == QString::fromLatin1(standIn.family),
                 qPrintable(QStringLiteral("%1 instead of %2 (package %3)")
                                .arg(found.family(), QString::fromLatin1(standIn.family),
                                     QString::fromLatin1(standIn.debianPackage))));
        QCOMPARE(found.pixelSize(), 11);
    }
    void the_check_finds_a_cut_caption() {
        openIn("eng");
        checkSeen(window());
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
        window().Lbl_ID3Title.setCaption(QString(60, QLatin1Char('m')));
        window().ChameleonButton16.setCaption(QString(60, QLatin1Char('m')));
        checkSeen(window());
        QCOMPARE(cut.found.size(), 3); // the label, its twin and the button
    }

    void every_caption_of_the_main_window_fits_data() { languageRows(); }
    void every_caption_of_the_main_window_fits() {
        QFETCH(QByteArray, code);
        openIn(code);
        const QStringList fromFiles = {QStringLiteral("Label10"), QStringLiteral("Label14")};
        QVERIFY(checkSeen(window()) > 25);
        click(window().Edit_Menu);
        QVERIFY(checkSeen(window()) > 20);
        opened->chooseRow(1);
        QVERIFY(checkSeen(window(), fromFiles) > 15);
        for (chameleonButton* tool : {&window().Refresh, &window().Searcher, &window().Zipper}) {
            emit tool->MouseMove(0, 0, 1, 1);
            checkSeen(window(), fromFiles);
        }
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }
    void the_placeholder_texts_fit_data() { languageRows(); }
    void the_placeholder_texts_fit() {
        QFETCH(QByteArray, code);
        opened->world.useLanguage(code.constData());
        opened->open();
        QVERIFY(checkSeen(window()) > 20);
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }
    void the_hint_on_refused_input_fits() {
        openIn("eng");
        click(window().Edit_Menu);
        emit window().EditID3Title.inputRefused();
        checkSeen(window());
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }
    void the_largest_numbers_fit() {
        openIn("eng");
        window().TotalRom.setCaption(QStringLiteral("+9999"));
        window().Label41.setCaption(QStringLiteral("#100000/100000"));
        window().GameFormat.setCaption(QStringLiteral("GameBoy Advance [33554KB]"));
        checkSeen(window());
        click(window().Edit_Menu);
        window().Label2.setCaption(QStringLiteral("-175"));
        // The panel ends one pixel before the shadow of the counter does.
        checkSeen(window(), {QStringLiteral("Label3")});
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }
    void every_caption_of_the_question_fits_data() { languageRows(); }
    void every_caption_of_the_question_fits() {
        QFETCH(QByteArray, code);
        openIn(code);
        click(window().chameleonButton1);
        const TorvMsg& question = *opened->program->loaded<TorvMsg>();
        QVERIFY(QTest::qWaitForWindowExposed(opened->program->loaded<TorvMsg>()));
        QVERIFY(checkSeen(question) >= 2);
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }
    void every_text_of_the_language_window_fits_data() {
        QTest::addColumn<int>("language");
        for (const int language : {0, 1, 2}) QTest::addRow("%d", language) << language;
    }
    void every_text_of_the_language_window_fits() {
        QFETCH(int, language);
        opened->world.setSetting("Language", QString());
        opened->start();
        SelLangStartUp& first = *opened->program->loaded<SelLangStartUp>();
        QVERIFY(QTest::qWaitForWindowExposed(&first));
        const auto type = [&] {
            while (first.Timer1.Enabled()) emit first.Timer1.Tick();
            checkSeen(first);
        };
        type();
        QList<Label*> languages = {&first.Label4, &first.Label5, &first.Label6};
        click(*languages[language]);
        type();
        QVERIFY(checkSeen(first) >= 7);
        click(first.ok);
        type();
        QVERIFY(!first.Label7.Caption().isEmpty());
        QCOMPARE(cut.found.join(QLatin1Char('\n')), QString());
    }

    void the_words_of_the_design_are_replaced_data() { languageRows(); }
    void the_words_of_the_design_are_replaced() {
        QFETCH(QByteArray, code);
        openIn(code);
        const QList<QPair<QString, const char*>> words = {{window().Lbl_ID3Title.Caption(), "gametitle"},
                                                          {window().Lbl_ID3Author.Caption(), "gamecompany"},
                                                          {window().Lbl_ID3Date.Caption(), "gamedate"},
                                                          {window().Lbl_ID3Info.Caption(), "gameinfo"},
                                                          {window().Lbl_ID3Format.Caption(), "gameformat"},
                                                          {window().Label46.Caption(), "editid3"},
                                                          {window().Label45.Caption(), "gametitle"},
                                                          {window().Label43.Caption(), "gamecompany"},
                                                          {window().Label57.Caption(), "gameinfo"},
                                                          {window().Label11.Caption(), "ziptitle"},
                                                          {window().Label9.Caption(), "size"},
                                                          {window().Label16.Caption(), "totalrom"},
                                                          {window().ChameleonButton17.Caption(), "delzip"},
                                                          {window().ChameleonButton18.Caption(), "copyzip"},
                                                          {window().ChameleonButton13.Caption(), "loadzip"},
                                                          {window().ChameleonButton16.Caption(), "loadrom"},
                                                          {window().chameleonButton11.Caption(), "deltag"},
                                                          {window().chameleonButton9.Caption(), "delrom"},
                                                          {window().chameleonButton10.Caption(), "copyrom"},
                                                          {window().chameleonButton19.Caption(), "edittag"}};
        for (const auto& [shown, key] : words) {
            QVERIFY2(!shown.isEmpty(), key);
            QCOMPARE(shown, opened->text("MainMenu", key));
        }
    }
    void another_language_appears_when_the_main_window_is_reloaded() {
        openIn("esp");
        QCOMPARE(window().Lbl_ID3Title.Caption(), QStringLiteral("Título del juego"));
        opened->program->globals.LanguageFile =
            opened->world.appPath() + QStringLiteral("\\data\\lang\\lang_cat.tvl");
        QCOMPARE(window().Lbl_ID3Title.Caption(), QStringLiteral("Título del juego"));
        // A text that is looked up when it is shown is new at once.
        click(window().Edit_Menu);
        QCOMPARE(window().Label17.Caption(), QStringLiteral("» Edita el ROM.TAG"));
        opened->program->desk.go(Window::MainFrm, Window::MainFrm);
        QCOMPARE(window().Lbl_ID3Title.Caption(), QStringLiteral("Títol del joc"));
        QCOMPARE(window().Label1.Caption(), QStringLiteral("Torvane 1.1 » Menú principal"));
        QCOMPARE(window().Label13.Caption(), QStringLiteral("» Llista de jocs"));
    }
};

TORVANE_TEST(MainFrmCaptionsTest)
#include "MainFrmCaptionsTest.moc"

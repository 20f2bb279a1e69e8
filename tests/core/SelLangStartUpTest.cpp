// SPDX-License-Identifier: MIT
// The first start: the window that asks for the language, from the request to the main window.
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
const QString request = QStringLiteral("Escoge Idioma\r\nSel·lecciona Llengua\r\nSelect Your Language");
constexpr OleColour redText = 255;
constexpr OleColour whiteText = 16777215;
} // namespace

class SelLangStartUpTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    SelLangStartUp& window() const { return *opened->program->loaded<SelLangStartUp>(); }
    Label& label(const QString& name) const { return *window().findChild<Label*>(name); }
    /// Runs the typewriter to its end without waiting; gives the typed text.
    QString typed() const {
        for (int tick = 0; window().Timer1.Enabled() && tick < 1000; ++tick) emit window().Timer1.Tick();
        return window().Label7.Caption();
    }

private slots:
    void init() {
        opened = std::make_unique<OpenedProgram>();
        opened->world.setSetting("Language", QString());
        opened->start();
        QVERIFY(opened->program->loaded<SelLangStartUp>() != nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
    }
    void cleanup() { opened.reset(); }

    void an_empty_store_shows_the_language_window_and_no_other() {
        OpenedProgram fresh;
        QVERIFY(QFile::remove(fresh.world.settings.fileOf(QStringLiteral("Torvane"))));
        Program& program = fresh.start();
        QVERIFY(program.loaded<SelLangStartUp>()->isVisible());
        QVERIFY(!program.loaded<Splash>());
        QVERIFY(!program.loaded<MainFrm>());
        QCOMPARE(fresh.world.setting("Language"), QStringLiteral("(absent)"));
    }
    void the_request_is_typed_one_character_every_75_milliseconds() {
        QCOMPARE(window().Timer1.Interval(), 75);
        window().ShowDialog(request);
        QCOMPARE(window().Label7.Caption(), QString());
        emit window().Timer1.Tick();
        QCOMPARE(window().Label7.Caption(), QStringLiteral("E"));
        emit window().Timer1.Tick();
        QCOMPARE(window().Label7.Caption(), QStringLiteral("Es"));
        QCOMPARE(typed(), request);
    }
    void the_typewriter_runs_on_its_own_and_stops_after_the_last_character() {
        window().ShowDialog(QStringLiteral("ab"));
        QTRY_COMPARE_WITH_TIMEOUT(window().Label7.Caption(), QStringLiteral("ab"), 2000);
        QVERIFY(!window().Timer1.Enabled());
    }
    void before_a_choice_there_are_three_white_languages_and_no_answers() {
        for (const char* name : {"Label4", "Label5", "Label6"}) {
            QVERIFY(isSeen(label(QString::fromLatin1(name))));
            QCOMPARE(label(QString::fromLatin1(name)).ForeColor(), whiteText);
        }
        QCOMPARE(window().Label4.Caption(), QStringLiteral("Español"));
        QCOMPARE(window().Label5.Caption(), QStringLiteral("Català"));
        QCOMPARE(window().Label6.Caption(), QStringLiteral("English"));
        QCOMPARE(window().Label1.Caption(), QStringLiteral("Torvane 1.1"));
        QVERIFY(!isSeen(window().ok));
        QVERIFY(!isSeen(window().no));
    }

    void a_click_on_a_language_asks_in_it_and_disables_the_others_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("question");
        QTest::newRow("Spanish") << QStringLiteral("Label4") << QStringLiteral("Español. ¿Bien?");
        QTest::newRow("Catalan") << QStringLiteral("Label5") << QStringLiteral("Català. Bé?");
        QTest::newRow("English") << QStringLiteral("Label6") << QStringLiteral("English. OK?");
    }
    void a_click_on_a_language_asks_in_it_and_disables_the_others() {
        QFETCH(QString, name);
        QFETCH(QString, question);
        typed();
        click(label(name));
        QCOMPARE(window().Label7.Caption(), QString());
        QCOMPARE(typed(), question);
        QVERIFY(isSeen(window().ok));
        QVERIFY(isSeen(window().no));
        for (const char* other : {"Label4", "Label5", "Label6"}) {
            const bool chosen = name == QLatin1String(other);
            QCOMPARE(label(QString::fromLatin1(other)).ForeColor(), chosen ? redText : whiteText);
            QCOMPARE(label(QString::fromLatin1(other)).isEnabled(), chosen);
        }
        QCOMPARE(opened->world.setting("Language"), QString());
    }
    void a_disabled_language_takes_no_click() {
        click(window().Label4);
        QCOMPARE(typed(), QStringLiteral("Español. ¿Bien?"));
        click(window().Label6);
        QCOMPARE(typed(), QStringLiteral("Español. ¿Bien?"));
        QCOMPARE(window().Label6.ForeColor(), whiteText);
    }
    void a_second_click_on_the_same_language_types_nothing_new() {
        click(window().Label5);
        emit window().Timer1.Tick();
        emit window().Timer1.Tick();
        click(window().Label5);
        QCOMPARE(window().Label7.Caption(), QStringLiteral("Ca"));
        QCOMPARE(typed(), QStringLiteral("Català. Bé?"));
        click(window().Label5);
        QVERIFY(!window().Timer1.Enabled());
        QCOMPARE(window().Label7.Caption(), QStringLiteral("Català. Bé?"));
    }
    void a_question_asked_during_a_tick_is_typed_completely() {
        emit window().Timer1.Tick();
        QTimer::singleShot(0, &window(), [this] { emit window().Label4.Click(); });
        emit window().Timer1.Tick();
        QCOMPARE(typed(), QStringLiteral("Español. ¿Bien?"));
    }

    void no_types_the_request_again_and_keeps_the_languages_available() {
        click(window().Label6);
        typed();
        click(window().no);
        QVERIFY(!isSeen(window().ok));
        QVERIFY(!isSeen(window().no));
        QCOMPARE(typed(), request);
        for (const char* name : {"Label4", "Label5", "Label6"}) {
            QVERIFY(isSeen(label(QString::fromLatin1(name))));
            QVERIFY(label(QString::fromLatin1(name)).isEnabled());
            QCOMPARE(label(QString::fromLatin1(name)).ForeColor(), whiteText);
        }
        click(window().Label4);
        QCOMPARE(typed(), QStringLiteral("Español. ¿Bien?"));
    }
    void after_no_the_same_language_shows_the_answers_but_asks_nothing_new() {
        click(window().Label6);
        typed();
        click(window().no);
        typed();
        click(window().Label6);
        QCOMPARE(typed(), request);
        QCOMPARE(window().Label6.ForeColor(), redText);
        QVERIFY(isSeen(window().ok));
        click(window().ok);
        QVERIFY(opened->world.setting("Language").endsWith(QStringLiteral("lang_eng.tvl")));
    }

    void ok_stores_the_language_and_thanks_in_it_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("thanks");
        QTest::newRow("Spanish") << QStringLiteral("Label4") << QStringLiteral("esp")
                                 << QStringLiteral("¡Gracias! Si necesitas algo, llámame. Estaré en "
                                                   "Configuración. ¡Que disfrutes de Torvane!");
        QTest::newRow("Catalan") << QStringLiteral("Label5") << QStringLiteral("cat")
                                 << QStringLiteral("Gràcies! Si necessites res, crida'm. Estaré a la "
                                                   "Configuració. Que gaudeixis de Torvane!");
        QTest::newRow("English") << QStringLiteral("Label6") << QStringLiteral("eng")
                                 << QStringLiteral("Thanks! If you need me, i'll be in Configuration. I "
                                                   "hope you will enjoy Torvane!");
    }
    void ok_stores_the_language_and_thanks_in_it() {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QFETCH(QString, thanks);
        const QImage before = window().picture().toImage();
        click(label(name));
        click(window().ok);
        QCOMPARE(opened->world.setting("Language"), opened->world.appPath() +
                                                        QStringLiteral("\\data\\lang\\lang_") + code +
                                                        QStringLiteral(".tvl"));
        for (const char* gone : {"ok", "no", "Label4", "Label5", "Label6"}) {
            QVERIFY2(!isSeen(label(QString::fromLatin1(gone))), gone);
        }
        QVERIFY(window().picture().toImage() != before);
        QCOMPARE(window().Image1.Picture().toImage(), window().picture().toImage());
        QCOMPARE(typed(), thanks);
        QVERIFY(isSeen(window()));
        QVERIFY(window().Timer2.Enabled());
        QCOMPARE(window().Timer2.Interval(), 15000);
    }
    void after_the_thanks_the_program_starts_and_the_window_is_gone() {
        click(window().Label6);
        click(window().ok);
        emit window().Timer2.Tick();
        QVERIFY(opened->program->loaded<SelLangStartUp>() == nullptr);
        QVERIFY(opened->main().isVisible());
        QCOMPARE(opened->program->globals.LanguageName, QStringLiteral("English"));
    }
    void quitting_within_the_15_seconds_keeps_the_language_for_the_next_start() {
        click(window().Label5);
        click(window().ok);
        QVERIFY(!opened->program->loaded<MainFrm>());
        opened->close();
        Program& next = opened->start();
        QVERIFY(!next.loaded<SelLangStartUp>());
        QVERIFY(next.loaded<MainFrm>()->isVisible());
        QCOMPARE(next.globals.LanguageName, QStringLiteral("Català"));
    }
    void a_choice_that_was_not_confirmed_is_asked_for_again() {
        click(window().Label5);
        opened->close();
        opened->start();
        QVERIFY(opened->program->loaded<SelLangStartUp>() != nullptr);
        QCOMPARE(typed(), request);
    }
    void a_settings_store_that_cannot_be_written_is_reported_and_ends_the_program() {
        const QString store = opened->world.settings.fileOf(QStringLiteral("Torvane"));
        QVERIFY(QFile::remove(store));
        QVERIFY(QDir().mkdir(store));
        click(window().Label4);
        click(window().ok);
        QCOMPARE(opened->world.messages.boxes.size(), 1);
        QVERIFY(opened->world.messages.last().startsWith(QStringLiteral("Run-time error '")));
        QCOMPARE(opened->world.messages.boxes.last().flags, 16);
        QCOMPARE(opened->world.ends, 1);
    }
    void the_typed_text_does_not_cover_the_languages() {
        // The whole visible label must react, even where the text field overlaps it.
        for (const Label* language : {&window().Label4, &window().Label5, &window().Label6}) {
            const QRect place = language->geometry();
            QCOMPARE(window().childAt(place.topLeft()), language);
            QCOMPARE(window().childAt(place.center()), language);
        }
    }
    void closing_the_window_via_the_window_manager_ends_the_program() {
        window().close();
        QCOMPARE(opened->world.ends, 1);
        QCOMPARE(opened->world.setting("Language"), QString());
    }
};

TORVANE_TEST(SelLangStartUpTest)
#include "SelLangStartUpTest.moc"

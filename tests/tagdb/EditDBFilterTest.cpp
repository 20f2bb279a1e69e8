// SPDX-License-Identifier: MIT
// The filter controls of the database window: what each of them does, and when.
#include "support/OpenedDatabase.h"
#include "support/TestMain.h"

#include <QDate>
#include <QLocale>

using namespace torvane;
using namespace Qt::StringLiterals;

class EditDBFilterTest : public OpenedDatabase {
    Q_OBJECT

    const QStringList all{u"TETRIS"_s, u"Wario"_s, u"Metroid"_s};

    static constexpr QPoint onMark{6, 7}; // of an option: right of its words nothing happens

    void apply() const { click(window().ChameleonButton2); }
    QList<TextBox*> boxes() const {
        return {&window().File_Author, &window().File_Game, &window().File_Date, &window().File_Company};
    }
    void enter(TextBox& box, const QString& text) const {
        click(box);
        box.setText(QString());
        typeText(*box.focusProxy(), text);
    }

private slots:
    void init() {
        start();
        openDatabase(tetris + wario + metroid);
        QCOMPARE(titles(), all);
    }
    void cleanup() { end(); }

    void typing_and_ticking_change_nothing_by_themselves() {
        for (TextBox* box : boxes()) enter(*box, u"7"_s);
        for (CheckBox* box : {&window().GB_CL, &window().GB_CO, &window().GB_AD}) click(*box);
        click(window().Entradas_0, onMark);
        QCOMPARE(titles(), all);
        QCOMPARE(window().GB_CL.Value(), 0);
        QVERIFY(window().Entradas_0.Value());
        apply();
        QCOMPARE(titles(), QStringList());
    }
    void enter_in_a_filter_box_applies_data() {
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("text");
        QTest::newRow("author") << 0 << u"torvane"_s;
        QTest::newRow("game") << 1 << u"tetris"_s;
        QTest::newRow("date") << 2 << u"1"_s;
        QTest::newRow("company") << 3 << u"INTELLIGENT"_s;
    }
    void enter_in_a_filter_box_applies() {
        QFETCH(int, box);
        QFETCH(QString, text);
        enter(*boxes()[box], text);
        QCOMPARE(titles(), all);
        QTest::keyClick(window().windowHandle(), box == 1 ? Qt::Key_Enter : Qt::Key_Return);
        QCOMPARE(titles().size(), text == u"1"_s ? 0 : 1);
    }
    void enter_changes_no_box_and_leaves_the_cursor_in_it() {
        enter(window().File_Game, u"tetris"_s);
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        QCOMPARE(window().File_Game.Text(), u"tetris"_s);
        typeText(*QApplication::focusWidget(), u"!"_s);
        QCOMPARE(window().File_Game.Text(), u"tetris!"_s);
    }
    void each_console_has_its_box() {
        const QList<CheckBox*> consoles{&window().GB_CL, &window().GB_CO, &window().GB_AD};
        for (int i = 0; i < consoles.size(); ++i) {
            click(*consoles[i]);
            apply();
            QStringList others = all;
            others.removeAt(i);
            QCOMPARE(titles(), others);
            click(*consoles[i]);
        }
    }
    void without_any_console_only_the_word_no_is_left() {
        publish(tetris + dbLine({"no", "Nobody", "", "", "", "USER", ""}) + metroid);
        click(window().chameleonButton1);
        collectGone();
        clickDatabase();
        QCOMPARE(titles(), QStringList({u"TETRIS"_s, u"Metroid"_s}));
        for (CheckBox* box : {&window().GB_CL, &window().GB_CO, &window().GB_AD}) click(*box);
        apply();
        QCOMPARE(titles(), QStringList{u"Nobody"_s});
    }
    void each_kind_has_its_option_and_lower_case_counts() {
        click(window().Entradas_0, onMark);
        apply();
        QCOMPARE(titles(), QStringList{u"TETRIS"_s});
        click(window().Entradas_1, onMark);
        apply();
        QCOMPARE(titles(), QStringList{u"Wario"_s});
        QCOMPARE(column(3), QStringList{u"USER"_s});
        click(window().Entradas_2, onMark);
        apply();
        QCOMPARE(titles(), all);
    }
    void a_text_matches_a_whole_field_without_regard_to_case_data() {
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("rows");
        QTest::newRow("author") << 0 << u"ANA"_s << 1;
        QTest::newRow("part of an author") << 0 << u"An"_s << 0;
        QTest::newRow("game") << 1 << u"tetris"_s << 1;
        QTest::newRow("more than a game") << 1 << u"tetris dx"_s << 0;
        QTest::newRow("a blank") << 1 << u"tetris "_s << 0;
        QTest::newRow("company") << 3 << u"nintendo"_s << 2;
    }
    void a_text_matches_a_whole_field_without_regard_to_case() {
        QFETCH(int, box);
        QFETCH(QString, text);
        enter(*boxes()[box], text);
        apply();
        QTEST(static_cast<int>(titles().size()), "rows");
    }
    void an_age_finds_the_entries_of_exactly_that_day() {
        const auto dated = [](int days) {
            const QString date =
                QLocale::system().toString(QDate::currentDate().addDays(-days), QLocale::ShortFormat);
            return dbLine({"byn", "age" + QByteArray::number(days), "", date.toLatin1()});
        };
        publish(dated(2) + dated(3) + dated(4));
        click(window().chameleonButton1);
        collectGone();
        clickDatabase();
        QCOMPARE(titles().size(), 3);
        enter(window().File_Date, u"3"_s);
        apply();
        QCOMPARE(titles(), QStringList{u"age3"_s});
    }
    void an_age_that_is_no_number_filters_nothing() {
        enter(window().File_Date, u"old"_s);
        apply();
        QCOMPARE(titles(), all);
    }
    void applying_twice_gives_the_same_list() {
        enter(window().File_Company, u"Nintendo"_s);
        apply();
        const QStringList once = titles();
        QCOMPARE(once.size(), 2);
        apply();
        QCOMPARE(titles(), once);
    }
    void applying_is_no_download_and_the_timer_does_not_start_again() {
        QVERIFY(!window().Timer1.Enabled());
        apply();
        QVERIFY(!window().Timer1.Enabled());
        QVERIFY(!isSeen(window().load));
        QVERIFY(window().ChameleonButton17.Enabled());
    }
    void a_new_list_has_no_selected_entry() {
        chooseRow(1);
        apply();
        QCOMPARE(window().ListView1.currentRow(), -1);
    }
    void the_filter_reads_the_local_file_and_not_the_host() {
        publish(tetris);
        apply();
        QCOMPARE(titles(), all);
    }
    void without_the_local_file_the_failure_is_reported_and_the_list_is_empty() {
        QVERIFY(QFile::remove(opened->world.folder.path(u"online_db.dat"_s)));
        apply();
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY2(messages().last().contains(u"online_db.dat"_s), qPrintable(messages().last()));
        QVERIFY2(messages().last().contains(u"53"_s), qPrintable(messages().last()));
        QCOMPARE(titles(), QStringList());
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible());
        opened->world.folder.write(u"online_db.dat"_s, wario);
        apply();
        QCOMPARE(titles(), QStringList{u"Wario"_s});
    }
    void the_tab_key_goes_through_what_is_in_sight_only() {
        QSet<QWidget*> seen;
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(window().windowHandle(), Qt::Key_Tab);
            QWidget* focus = QApplication::focusWidget();
            QVERIFY(focus != nullptr);
            const QRect place(focus->mapTo(&window(), QPoint()), focus->size());
            QVERIFY2(window().rect().intersects(place), qPrintable(focus->parent()->objectName()));
            seen.insert(focus);
        }
        QVERIFY2(seen.size() >= 13, qPrintable(QString::number(seen.size())));
    }
};

TORVANE_TEST(EditDBFilterTest)
#include "EditDBFilterTest.moc"

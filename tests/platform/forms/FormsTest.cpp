// SPDX-License-Identifier: MIT
// Windows of the forms runtime: place, owner, state, life, painting, and what becomes of failures.
#include "art/ArtResources.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/INITool.h"
#include "platform/forms/Image.h"
#include "platform/forms/Label.h"
#include "platform/forms/Panel.h"
#include "platform/forms/Screen.h"
#include "platform/forms/Timer.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QWindow>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// A window that records what its handlers are asked, and fails on request.
class Probe : public TestForm {
    Q_OBJECT

public:
    explicit Probe(Runtime& givenRuntime) : TestForm(givenRuntime) {
        wire(button, &Label::Click, &Probe::button_Click);
        wire(teller, &Label::Click, &Probe::button_Click, Failure::reported);
    }

    Label button{*this, "button", {0, 0, 50, 20}, {"button"}};
    Label teller{*this, "teller", {0, 30, 50, 20}, {"teller"}};
    int clicks = 0;
    int questions = 0;
    int unloads = 0;
    bool staysOpen = false;
    bool visibleInLastHandler = true;
    RuntimeFailure::Number failsWith = RuntimeFailure::none;

protected:
    void queryUnload() override {
        ++questions;
        fail();
        if (!staysOpen) TestForm::queryUnload();
    }
    void onUnload() override {
        ++unloads;
        visibleInLastHandler = isVisible();
    }

private:
    void button_Click() {
        ++clicks;
        fail();
    }
    void fail() const {
        if (failsWith != RuntimeFailure::none) throw RuntimeFailure(failsWith);
    }
};
} // namespace

class FormsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<Probe> form;

    QColor backColour() const { return Colours::toQColor(TestForm::back); }

private slots:
    void initTestCase() { initArtResources(); }
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<Probe>(world->runtime);
    }
    void cleanup() { form.reset(); }

    // Place
    void the_first_show_centres_the_window_on_the_screen() {
        QVERIFY(form->appear());
        const QRect screen = Screen::geometry();
        QCOMPARE(form->pos(),
                 screen.topLeft() + QPoint((screen.width() - 300) / 2, (screen.height() - 200) / 2));
    }
    void a_later_show_leaves_the_window_where_the_user_has_put_it() {
        QVERIFY(form->appear());
        form->move(17, 23);
        form->Hide();
        QVERIFY(!form->isVisible());
        QVERIFY(form->appear());
        QCOMPARE(form->pos(), QPoint(17, 23));
    }
    void a_window_that_was_placed_before_its_first_show_stays_there() {
        form->moveTo(150, 300);
        QVERIFY(form->appear());
        QCOMPARE(form->pos(), QPoint(10, 20));
    }
    void a_window_with_the_default_start_position_is_not_centred() {
        FormDesign design = TestForm::plain;
        design.start = FormDesign::systemDefault;
        TestForm other(world->runtime, design);
        other.move(3, 4);
        QVERIFY(other.appear());
        QCOMPARE(other.pos(), QPoint(3, 4));
    }
    void left_and_top_are_in_twips() {
        form->move(10, -4);
        QCOMPARE(form->Left(), 150);
        QCOMPARE(form->Top(), -60);
        form->moveTo(157, -68);
        QCOMPARE(form->pos(), QPoint(10, -5));
    }
    void the_size_of_a_window_is_fixed_unless_its_border_is_sizable() {
        form->resize(900, 900);
        QCOMPARE(form->size(), QSize(300, 200));
        FormDesign design = TestForm::plain;
        design.border = FormDesign::sizable;
        TestForm sizable(world->runtime, design);
        QCOMPARE(sizable.size(), QSize(300, 200));
        sizable.resize(400, 300);
        QCOMPARE(sizable.size(), QSize(400, 300));
    }

    // Owner
    void a_window_with_an_owner_stays_above_it() {
        Probe owned(world->runtime);
        QVERIFY(form->appear());
        owned.Show(form.get());
        QVERIFY(owned.isVisible());
        QCOMPARE(owned.windowHandle()->transientParent(), form->windowHandle());
        QCOMPARE(owned.windowModality(), Qt::NonModal);
    }
    void a_window_without_an_owner_follows_none() {
        QVERIFY(form->appear());
        QVERIFY(form->windowHandle()->transientParent() == nullptr);
    }

    // State
    void the_state_word_gives_and_sets_the_window_state() {
        QVERIFY(form->appear());
        QCOMPARE(form->windowStateWord(), Form::normal);
        QSignalSpy resized(form.get(), &Form::resized);
        form->setWindowStateWord(Form::minimised);
        QCOMPARE(form->windowStateWord(), Form::minimised);
        QVERIFY(form->isMinimized());
        QCOMPARE(resized.size(), 1);
        form->setWindowStateWord(Form::normal);
        QCOMPARE(form->windowStateWord(), Form::normal);
        QVERIFY(form->isVisible());
        QCOMPARE(resized.size(), 2);
    }
    void the_state_word_of_a_hidden_window_shows_nothing() {
        form->setWindowStateWord(Form::minimised);
        form->setWindowStateWord(Form::normal);
        QVERIFY(!form->isVisible());
    }
    void the_numbers_of_the_state_words_are_the_runtimes_own() {
        QCOMPARE(int(Form::normal), 0);
        QCOMPARE(int(Form::minimised), 1);
        QCOMPARE(int(Form::maximised), 2);
    }

    // Life
    void unloading_hides_the_window_runs_its_last_handler_and_notifies_the_owner_once() {
        QVERIFY(form->appear());
        QSignalSpy unloaded(form.get(), &Form::unloaded);
        form->Unload();
        QVERIFY(!form->isVisible());
        QCOMPARE(form->unloads, 1);
        QVERIFY(!form->visibleInLastHandler);
        QCOMPARE(unloaded.size(), 1);
        form->Unload();
        QCOMPARE(form->unloads, 1);
        QCOMPARE(unloaded.size(), 1);
    }
    void hiding_unloads_nothing() {
        QVERIFY(form->appear());
        form->Hide();
        QCOMPARE(form->unloads, 0);
    }
    void a_close_by_the_window_manager_asks_the_form_which_unloads() {
        QVERIFY(form->appear());
        QSignalSpy unloaded(form.get(), &Form::unloaded);
        form->close();
        QCOMPARE(form->questions, 1);
        QCOMPARE(unloaded.size(), 1);
        QVERIFY(!form->isVisible());
    }
    void a_form_may_refuse_to_be_closed() {
        form->staysOpen = true;
        QVERIFY(form->appear());
        QVERIFY(!form->close());
        QCOMPARE(form->questions, 1);
        QCOMPARE(form->unloads, 0);
        QVERIFY(form->isVisible());
    }
    void closing_the_last_window_does_not_end_the_program() {
        QVERIFY(!form->testAttribute(Qt::WA_QuitOnClose));
    }

    // Painting
    void without_a_picture_the_back_colour_is_seen() {
        form->button.hide();
        form->teller.hide();
        const QImage seen = imageOf(*form);
        QCOMPARE(seen.size(), QSize(300, 200));
        QVERIFY(inkOf(seen, backColour()).isNull());
    }
    void the_back_colour_word_has_red_in_its_lowest_byte() {
        QCOMPARE(Colours::toQColor(0x0080FF), QColor(0xFF, 0x80, 0x00));
        QCOMPARE(Colours::toQColor(Colours::buttonFace), QColor(0xF0, 0xF0, 0xF0));
    }
    void a_picture_lies_in_the_top_left_corner_over_the_back_colour() {
        form->button.hide();
        form->teller.hide();
        QPixmap picture(100, 50);
        picture.fill(Qt::blue);
        form->setPicture(picture);
        const QImage seen = imageOf(*form);
        QCOMPARE(inkOf(seen, backColour()), QRect(0, 0, 100, 50));
        QCOMPARE(seen.pixelColor(99, 49), QColor(Qt::blue));
    }
    void the_picture_of_the_design_is_taken_from_the_resources() {
        FormDesign design = TestForm::plain;
        design.picture = "TorvMsg.jpg";
        TestForm dressed(world->runtime, design);
        QCOMPARE(dressed.picture().size(), QSize(302, 68));
        design.picture = "no such picture.jpg";
        QVERIFY(TestForm(world->runtime, design).picture().isNull());
    }
    void an_image_lies_under_all_other_controls_and_lets_the_mouse_through() {
        Image image(*form, "image", {0, 0, 48, 48}, "yes-24.png");
        QCOMPARE(image.Picture().deviceIndependentSize(), QSizeF(24, 24));
        QCOMPARE(form->children().indexOf(&image), 0);
        QVERIFY(form->appear());
        QCOMPARE(form->childAt(5, 5), static_cast<QWidget*>(&form->button));
    }

    // Failures
    void a_failure_that_a_handler_lets_through_is_reported_and_ends_the_process() {
        form->failsWith = RuntimeFailure::fileNotFound;
        emit form->button.Click();
        QCOMPARE(world->messages.boxes.size(), 1);
        QCOMPARE(world->messages.last(), u"Run-time error '53':\n\nFile not found"_s);
        QCOMPARE(world->messages.boxes[0].flags, 16);
        QCOMPARE(world->ends, 1);
    }
    void a_failure_of_a_handler_that_only_reports_does_not_end_the_process() {
        form->failsWith = RuntimeFailure::diskFull;
        emit form->teller.Click();
        QCOMPARE(world->messages.last(), u"Run-time error '61':\n\nDisk full"_s);
        QCOMPARE(world->messages.boxes[0].flags, 16);
        QCOMPARE(world->ends, 0);
        emit form->teller.Click();
        QCOMPARE(form->clicks, 2);
    }
    void a_handler_without_failure_shows_no_box() {
        emit form->button.Click();
        emit form->teller.Click();
        QCOMPARE(form->clicks, 2);
        QVERIFY(world->messages.boxes.isEmpty());
        QCOMPARE(world->ends, 0);
    }
    void a_failure_while_closing_takes_the_default_path() {
        form->failsWith = RuntimeFailure::noObject;
        form->close();
        QCOMPARE(world->messages.last(),
                 u"Run-time error '91':\n\nObject variable or With block variable not set"_s);
        QCOMPARE(world->ends, 1);
    }
    void the_box_is_shown_before_the_process_ends() {
        qsizetype boxesAtEnd = -1;
        Runtime runtime = world->runtime;
        runtime.end = [&] { boxesAtEnd = world->messages.boxes.size(); };
        runtime.guarded([] { throw RuntimeFailure(RuntimeFailure::overflow); });
        QCOMPARE(boxesAtEnd, 1);
    }

    void a_reported_failure_has_the_programs_own_text_and_one_that_ends_it_has_the_runtimes() {
        Runtime runtime = world->runtime;
        runtime.failureText = [](const RuntimeFailure& failure) {
            return failure.file() + QString::number(failure.number());
        };
        const auto fail = [] { throw RuntimeFailure(RuntimeFailure::subscript).about(u"a.gb"_s); };
        runtime.reporting(fail);
        QCOMPARE(world->messages.last(), u"a.gb9"_s);
        QCOMPARE(world->messages.boxes[0].flags, 16);
        QCOMPARE(world->ends, 0);
        runtime.guarded(fail);
        QCOMPARE(world->messages.last(), u"Run-time error '9':\n\nSubscript out of range"_s);
        QCOMPARE(world->ends, 1);
    }

    // Parts of a form
    void places_in_the_tab_order_are_counted_through_panels() {
        Panel panel(*form, "panel", {0, 0, 100, 100}, {});
        const Label inner(panel, "inner", {0, 0, 10, 10}, Label::Look{});
        const Image image(*form, "image", {0, 0, 10, 10});
        const Label last(*form, "last", {0, 0, 10, 10}, Label::Look{});
        QCOMPARE(form->button.tabIndex(), 0);
        QCOMPARE(panel.tabIndex(), 2);
        QCOMPARE(inner.tabIndex(), 3);
        QCOMPARE(image.tabIndex(), -1);
        QCOMPARE(last.tabIndex(), 4);
    }
    void assistive_tools_get_the_role_and_the_text_of_a_control() {
        QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&form->button);
        QVERIFY(seen != nullptr);
        QCOMPARE(seen->role(), QAccessible::Button); // the form hears of its click
        form->button.setCaption(u"Salir"_s);
        QCOMPARE(seen->text(QAccessible::Name), u"Salir"_s);
    }
    void a_timer_ticks_while_it_is_enabled() {
        Timer timer(*form, "timer", 5, false);
        QSignalSpy ticks(&timer, &Timer::Tick);
        QTest::qWait(30);
        QCOMPARE(ticks.size(), 0);
        timer.setEnabled(true);
        QTRY_VERIFY(ticks.size() >= 2);
        timer.setEnabled(false);
        const qsizetype before = ticks.size();
        QTest::qWait(30);
        QCOMPARE(ticks.size(), before);
    }
    void a_timer_that_is_enabled_again_does_not_begin_anew() {
        Timer timer(*form, "timer", 300, true);
        QSignalSpy ticks(&timer, &Timer::Tick);
        const QDeadlineTimer limit(2000);
        while (ticks.isEmpty() && !limit.hasExpired()) {
            QTest::qWait(20);
            timer.setEnabled(true);
        }
        QVERIFY(!ticks.isEmpty());
    }
    void a_common_dialog_asks_through_the_forms_door() {
        CommonDialog dialog(*form, "Dlg");
        world->dialogs.answer = u"\\x\\a.gb"_s;
        QCOMPARE(dialog.ShowOpen({.title = u"open"_s, .filter = u"ROM|*.gb"_s, .fileName = {}}),
                 u"\\x\\a.gb"_s);
        QCOMPARE(dialog.ShowSave({.title = u"save"_s, .filter = {}, .fileName = u"b.gb"_s}), u"\\x\\a.gb"_s);
        QCOMPARE(world->dialogs.questions.size(), 2);
        QCOMPARE(world->dialogs.questions[0].filter, u"ROM|*.gb"_s);
        QCOMPARE(world->dialogs.questions[1].fileName, u"b.gb"_s);
    }
    void the_reader_of_ini_files_gives_text_of_the_code_page_and_nothing_for_what_is_missing() {
        const INITool reader(*form, "INITool1");
        const QString file = world->folder.write(u"a.tvl"_s, "[One]\r\nkey=Espa\xF1ol \x80\r\n");
        QCOMPARE(reader.Read(u"one"_s, u"KEY"_s, file), u"Español €"_s);
        QCOMPARE(reader.Read(u"one"_s, u"other"_s, file), QString());
        QCOMPARE(reader.Read(u"one"_s, u"key"_s, file + u"x"_s), QString());
    }
    void waiting_events_are_let_through_once() {
        int events = 0;
        QMetaObject::invokeMethod(
            this, [&] { ++events; }, Qt::QueuedConnection);
        QCOMPARE(events, 0);
        pumpEvents();
        QCOMPARE(events, 1);
    }
};

TORVANE_TEST(FormsTest)
#include "FormsTest.moc"

// SPDX-License-Identifier: MIT
// Moving a window by a label of it, and putting a window back inside the screen.
#include "toolkit/DragStrip.h"
#include "platform/forms/Screen.h"
#include "support/FakeWorld.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QMouseEvent>
#include <QSignalSpy>

using namespace torvane;

class DragStripTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeWorld> world;
    std::unique_ptr<TestForm> form;
    std::unique_ptr<Label> strip;
    std::unique_ptr<DragStrip> drag;

    void mouse(QEvent::Type type, QPoint screen, Qt::MouseButton button, Qt::MouseButtons held) const {
        QMouseEvent event(type, strip->mapFromGlobal(screen), screen, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(strip.get(), &event);
    }
    void press(QPoint screen, Qt::MouseButton button = Qt::LeftButton) const {
        mouse(QEvent::MouseButtonPress, screen, button, button);
    }
    void moveTo(QPoint screen) const { mouse(QEvent::MouseMove, screen, Qt::NoButton, Qt::LeftButton); }
    void release(QPoint screen) const {
        mouse(QEvent::MouseButtonRelease, screen, Qt::LeftButton, Qt::NoButton);
    }
    void place(int leftPixels, int topPixels) const {
        form->moveTo(leftPixels * twipsPerPixel, topPixels * twipsPerPixel);
        putInsideScreen(*form);
    }

private slots:
    void init() {
        world = std::make_unique<FakeWorld>();
        form = std::make_unique<TestForm>(world->runtime);
        strip = std::make_unique<Label>(*form, "strip", DesignRect{26, 2, 200, 17}, Label::Look{});
        drag = std::make_unique<DragStrip>(*form, *strip);
        form->moveTo(1500, 1500);
        QVERIFY(form->appear());
        QCOMPARE(form->pos(), QPoint(100, 100));
    }
    void cleanup() {
        drag.reset();
        strip.reset();
        form.reset();
    }

    void the_window_follows_the_pressed_mouse_pixel_by_pixel() {
        press({130, 110});
        moveTo({131, 109});
        QCOMPARE(form->pos(), QPoint(101, 99));
        moveTo({190, 95});
        QCOMPARE(form->pos(), QPoint(160, 85));
        QCOMPARE(form->Left(), 2400);
        release({190, 95});
        QCOMPARE(form->pos(), QPoint(160, 85));
    }
    // 2500 pixels are 37,500 twips.
    void a_pointer_farther_away_than_16_bits_of_twips_is_followed() {
        press({130, 110});
        moveTo({2630, 110});
        QCOMPARE(form->pos(), QPoint(2600, 100));
        moveTo({130, -2400});
        QCOMPARE(form->pos(), QPoint(100, -2410));
    }
    void a_press_alone_moves_nothing() {
        press({130, 110});
        moveTo({130, 110});
        release({130, 110});
        QCOMPARE(form->pos(), QPoint(100, 100));
    }
    void the_window_may_be_dragged_out_of_the_screen() {
        press({130, 110});
        moveTo({-20, -20});
        QCOMPARE(form->pos(), QPoint(-50, -30));
    }
    void without_a_press_or_after_the_release_the_window_stays() {
        moveTo({300, 300});
        QCOMPARE(form->pos(), QPoint(100, 100));
        press({130, 110});
        release({130, 110});
        moveTo({300, 300});
        QCOMPARE(form->pos(), QPoint(100, 100));
    }
    void the_right_button_does_not_drag() {
        press({130, 110}, Qt::RightButton);
        moveTo({300, 300});
        QCOMPARE(form->pos(), QPoint(100, 100));
    }
    void the_cursor_is_the_four_way_arrow_while_dragging() {
        QCOMPARE(strip->cursor().shape(), Qt::ArrowCursor);
        press({130, 110});
        QCOMPARE(strip->cursor().shape(), Qt::SizeAllCursor);
        moveTo({140, 120});
        QCOMPARE(form->cursor().shape(), Qt::SizeAllCursor);
        release({140, 120});
        QCOMPARE(strip->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(form->cursor().shape(), Qt::ArrowCursor);
    }
    void letting_go_is_reported_once_per_drag() {
        QSignalSpy dropped(drag.get(), &DragStrip::dropped);
        release({130, 110});
        QCOMPARE(dropped.size(), 0);
        press({130, 110});
        QCOMPARE(dropped.size(), 0);
        release({130, 110});
        release({130, 110});
        QCOMPARE(dropped.size(), 1);
    }

    void a_window_inside_the_screen_stays_up_to_its_last_pixel() {
        const QSize room = Screen::geometry().size() - form->size();
        for (const QPoint inside : {QPoint(0, 0), QPoint(40, 50), QPoint(room.width(), room.height())}) {
            place(inside.x(), inside.y());
            QCOMPARE(form->pos(), inside);
        }
    }
    void a_window_beyond_an_edge_is_put_at_the_edge_without_a_margin() {
        const QSize room = Screen::geometry().size() - form->size();
        place(-1, 60);
        QCOMPARE(form->pos(), QPoint(0, 60));
        place(60, -500);
        QCOMPARE(form->pos(), QPoint(60, 0));
        place(room.width() + 1, 60);
        QCOMPARE(form->pos(), QPoint(room.width(), 60));
        place(-5, room.height() + 400);
        QCOMPARE(form->pos(), QPoint(0, room.height()));
    }
    void of_a_window_larger_than_the_screen_the_right_and_lower_edges_count() {
        form->setFixedSize(Screen::geometry().size() + QSize(30, 50));
        place(100, 100);
        QCOMPARE(form->pos(), QPoint(-30, -50));
        place(-300, -300);
        QCOMPARE(form->pos(), QPoint(-30, -50));
    }
};

TORVANE_TEST(DragStripTest)
#include "DragStripTest.moc"

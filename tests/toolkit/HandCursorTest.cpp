// SPDX-License-Identifier: MIT
// The program's own hands over buttons and links, with the program's pictures linked in.
#include "PanelForm.h"
#include "art/ArtResources.h"
#include "support/TestMain.h"
#include "toolkit/InputWords.h"
#include "toolkit/chameleonButton.h"
#include "toolkit/vbwHyperlink.h"

using namespace torvane;
using InputWords::Hand;

class HandCursorTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { initArtResources(); }

    void hands_have_32_pixels_and_twice_as_many_dots_on_a_dense_screen() {
        for (const Hand hand : {Hand::overButton, Hand::overLink}) {
            QCOMPARE(InputWords::handIcon(hand, 1.0).size(), QSize(32, 32));
            const QPixmap dense = InputWords::handIcon(hand, 2.0);
            QCOMPARE(dense.size(), QSize(64, 64));
            QCOMPARE(dense.devicePixelRatio(), 2.0);
        }
    }

    void only_the_hand_over_links_has_the_arrow_that_leads_out() {
        const auto alphaInTheArrow = [](Hand hand) {
            return qAlpha(InputWords::handIcon(hand, 1.0).toImage().pixel(28, 4));
        };
        QCOMPARE(alphaInTheArrow(Hand::overButton), 0);
        QVERIFY(alphaInTheArrow(Hand::overLink) > 200);
    }

    void the_hot_spot_is_the_finger_tip() {
        for (const Hand hand : {Hand::overButton, Hand::overLink}) {
            for (const int ratio : {1, 2}) {
                const QPixmap icon = InputWords::handIcon(hand, ratio);
                const QCursor cursor = InputWords::handCursor(icon);
                QCOMPARE(cursor.hotSpot(), QPoint(10, 2));
                const QImage glove = icon.toImage();
                QVERIFY(qAlpha(glove.pixel(10 * ratio, 2 * ratio)) > 200);
                QCOMPARE(qAlpha(glove.pixel(10 * ratio, 0)), 0);
            }
        }
    }

    void hand_pointer_is_the_button_hand_and_its_mouse_icon() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30}, {});
        button.setHandPointer(true);
        const QImage glove = InputWords::handIcon(Hand::overButton, 1.0).toImage();
        QCOMPARE(button.MousePointer(), 99);
        QCOMPARE(button.MouseIcon().toImage(), glove);
        QCOMPARE(button.cursor().pixmap().toImage(), glove);
        QCOMPARE(button.cursor().hotSpot(), QPoint(10, 2));
        button.setHandPointer(false);
        QVERIFY(button.MouseIcon().isNull());
        QCOMPARE(button.cursor().shape(), Qt::ArrowCursor);
    }

    void another_mouse_icon_takes_the_hands_place() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30}, {});
        button.setHandPointer(true);
        QPixmap icon(8, 8);
        icon.fill(Qt::red);
        button.setMouseIcon(icon);
        QCOMPARE(button.cursor().pixmap().size(), QSize(8, 8));
        QCOMPARE(button.cursor().hotSpot(), QPoint(0, 0));
        button.setHandPointer(true);
        QCOMPARE(button.cursor().pixmap().size(), QSize(32, 32));
    }

    void a_saved_hand_comes_back_with_its_hot_spot() {
        PanelForm form;
        chameleonButton button(form, "button", {20, 20, 100, 30}, {});
        button.setHandPointer(true);
        PropertyBag bag;
        button.WriteProperties(bag);
        QVERIFY(bag.contains(QStringLiteral("MICON")));
        chameleonButton other(form, "other", {20, 60, 100, 30}, {});
        other.ReadProperties(bag);
        QCOMPARE(other.cursor().pixmap().size(), QSize(32, 32));
        QCOMPARE(other.cursor().hotSpot(), QPoint(10, 2));
        PropertyBag withoutIcon;
        withoutIcon.WriteProperty(QStringLiteral("HAND"), true);
        withoutIcon.WriteProperty(QStringLiteral("MPTR"), 99);
        other.ReadProperties(withoutIcon);
        QCOMPARE(other.MouseIcon().size(), QSize(32, 32));
    }

    void a_link_has_the_hand_of_the_links() {
        PanelForm form;
        vbwHyperlink link(form, "link", {20, 20, 45, 16}, {});
        QEnterEvent enter({3, 3}, {3, 3}, link.mapToGlobal(QPointF(3, 3)));
        QCoreApplication::sendEvent(&link, &enter);
        QCOMPARE(link.cursor().pixmap().toImage(), InputWords::handIcon(Hand::overLink, 1.0).toImage());
        QCOMPARE(link.cursor().hotSpot(), QPoint(10, 2));
    }
};

TORVANE_TEST(HandCursorTest)
#include "HandCursorTest.moc"

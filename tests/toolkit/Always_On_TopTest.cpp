// SPDX-License-Identifier: MIT
// The top-most band, as far as it can be seen without a window manager.
#include "toolkit/Always_On_Top.h"
#include "PanelForm.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QWindow>

using namespace torvane;

namespace {
bool isTopMost(const Form& form) { return form.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint); }

// Counts how often a window is hidden.
struct HideCounter : QObject {
    int hidden = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        hidden += event->type() == QEvent::Hide;
        return false;
    }
};
} // namespace

class Always_On_TopTest : public QObject {
    Q_OBJECT

private slots:
    void false_puts_a_shown_window_on_top_and_true_takes_it_out() {
        PanelForm form;
        form.showAndWait();
        QVERIFY(!isTopMost(form));
        SetTopMost(form, false);
        QVERIFY(isTopMost(form));
        QVERIFY(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        SetTopMost(form, true);
        QVERIFY(!isTopMost(form));
        QVERIFY(!form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    }

    void a_shown_window_is_never_hidden() {
        PanelForm form;
        form.showAndWait();
        HideCounter counter;
        form.installEventFilter(&counter);
        SetTopMost(form, false);
        SetTopMost(form, true);
        QCOMPARE(counter.hidden, 0);
        QVERIFY(form.isVisible());
    }

    void the_window_lands_exactly_where_it_was() {
        PanelForm form;
        form.moveTo(123 * twipsPerPixel, 77 * twipsPerPixel);
        form.showAndWait();
        const QRect before = form.geometry();
        QCOMPARE(before.topLeft(), QPoint(123, 77));
        for (const bool notTopMost : {false, true, true}) SetTopMost(form, notTopMost);
        QCOMPARE(form.geometry(), before);
    }

    void other_flags_of_the_window_stay() {
        PanelForm form;
        const Qt::WindowFlags before = form.windowFlags();
        SetTopMost(form, false);
        SetTopMost(form, true);
        QCOMPARE(form.windowFlags(), before);
    }

    void a_window_on_top_before_its_first_show_is_shown_on_top() {
        PanelForm form;
        SetTopMost(form, false);
        QVERIFY(!form.isVisible());
        form.showAndWait();
        QVERIFY(isTopMost(form));
    }

    void a_window_without_a_place_is_not_given_one() {
        PanelForm form;
        SetTopMost(form, true);
        QVERIFY(!form.testAttribute(Qt::WA_Moved));
    }
};

TORVANE_TEST(Always_On_TopTest)
#include "Always_On_TopTest.moc"

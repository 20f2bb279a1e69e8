// SPDX-License-Identifier: MIT
// The move of a window by the window manager, on a display that has one.
#include "PanelForm.h"
#include "support/OwnDisplay.h"
#include "support/TestMain.h"
#include "toolkit/Shaper.h"

#include <QProcess>

using namespace torvane;

namespace {
// A window whose whole surface is a title bar.
struct BarForm : PanelForm {
    bool isPressed = false;

protected:
    void mousePressEvent(QMouseEvent*) override {
        isPressed = true;
        DragForm(*this);
    }
};

QByteArray hand(const QStringList& words) {
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), words);
    tool.waitForFinished();
    if (tool.exitCode() != 0) qFatal("xdotool failed");
    return tool.readAll();
}

void moveTo(QPoint place) {
    hand({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
}

// Where the display has a window: the window manager reports the place only when it lets go.
QPoint placeOf(const QWidget& window) {
    const QByteArray shown = hand(
        {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), QString::number(window.winId())});
    const auto number = [&](const QByteArray& name) {
        return shown.mid(shown.indexOf('\n' + name + '=') + 3).split('\n').first().toInt();
    };
    return {number("X"), number("Y")};
}

// The window manager takes the pointer some time after the press, and sees no move that came before that: so
// the hand trembles a bit.
QPoint placeAfterMove(const QWidget& window, QPoint pointer) {
    moveTo(pointer + QPoint(1, 1));
    moveTo(pointer);
    return placeOf(window);
}

// Whether the window manager takes care of windows: it needs a moment to begin.
bool isManaged() {
    QWidget probe;
    probe.show();
    return QTest::qWaitForWindowActive(&probe, 500);
}
} // namespace

class DragFormTest : public QObject {
    Q_OBJECT

public:
    static void initMain() {
        if (!startOwnDisplay()) qFatal("no display: is Xvfb installed?");
    }

private slots:
    void initTestCase() {
        bool isReady = isManaged();
        for (int attempt = 1; attempt < 40 && !isReady; ++attempt) {
            // Where one is there already, another window manager leaves at once.
            if (attempt % 8 == 0) startBeside({"openbox"});
            isReady = isManaged();
        }
        QVERIFY(isReady);
    }

    void a_window_follows_the_pointer_until_its_button_is_released() {
        BarForm form;
        form.moveTo(100 * twipsPerPixel, 100 * twipsPerPixel);
        form.showAndWait();
        const QPoint hold(250, 200);
        moveTo(hold);
        hand({QStringLiteral("mousedown"), QStringLiteral("1")});
        QTRY_VERIFY(form.isPressed);
        for (const QPoint by : {QPoint(10, 5), QPoint(60, 40)})
            QTRY_COMPARE(placeAfterMove(form, hold + by), QPoint(100, 100) + by);
        hand({QStringLiteral("mouseup"), QStringLiteral("1")});
        QTRY_COMPARE(form.pos(), QPoint(160, 140));
        moveTo(hold);
        QTest::qWait(200); // for the window manager, which must not move it any more
        QCOMPARE(placeOf(form), QPoint(160, 140));
    }
    void without_a_held_button_the_window_stays_and_does_not_stick_to_the_pointer() {
        PanelForm form;
        form.moveTo(100 * twipsPerPixel, 100 * twipsPerPixel);
        form.showAndWait();
        moveTo({250, 200});
        DragForm(form);
        moveTo({300, 250});
        QTest::qWait(200); // for the window manager
        QCOMPARE(placeOf(form), QPoint(100, 100));
    }
};

TORVANE_TEST(DragFormTest)
#include "DragFormTest.moc"

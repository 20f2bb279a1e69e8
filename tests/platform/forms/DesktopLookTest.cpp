// SPDX-License-Identifier: MIT
// What boxes, fields and scroll bars of Qt look like once the application has its look.
#include "platform/forms/DesktopLook.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolTip>

using namespace torvane;

namespace {
constexpr DesktopLook dark{.ground = 0x4A3933,
                           .button = 0x644D4E,
                           .field = 0x382B26,
                           .text = 0xFFFFFF,
                           .selection = 0xA37774,
                           .faint = 0xB09A93};

// The relative luminance of a colour and the contrast of two, after the web's accessibility guidelines 2.1.
double luminanceOf(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrastOf(const QColor& one, const QColor& other) {
    const double a = luminanceOf(one) + 0.05;
    const double b = luminanceOf(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

// 0 black to 255 white.
int meanGreyOf(const QImage& image) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) sum += qGray(image.pixel(x, y));
    }
    return sum / (image.width() * image.height());
}
} // namespace

class DesktopLookTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { applyDesktopLook(dark); }

    void a_message_box_stands_on_the_ground_colour() {
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Torvane"), QStringLiteral("text"),
                        QMessageBox::Ok);
        box.show();
        QCOMPARE(imageOf(box).pixelColor(2, 2), QColor(0x33, 0x39, 0x4A));
        QVERIFY(hasColour(imageOf(box), Qt::white));
    }

    void a_message_box_has_the_sign_of_its_kind_and_buttons_without_pictures() {
        const QTemporaryDir folder;
        QImage sign(32, 32, QImage::Format_RGB32);
        sign.fill(Qt::magenta);
        QVERIFY(sign.save(folder.filePath(QStringLiteral("question.png"))));
        const QByteArray signs = folder.filePath(QStringLiteral("%1.png")).toUtf8();
        DesktopLook withSigns = dark;
        withSigns.signs = signs.constData();
        applyDesktopLook(withSigns);
        QMessageBox box(QMessageBox::Question, QStringLiteral("Torvane"), QStringLiteral("text"),
                        QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.iconPixmap().toImage().pixelColor(16, 16), QColor(Qt::magenta));
        QVERIFY(box.button(QMessageBox::Yes)->icon().isNull());
        // For this kind there is no file.
        const QMessageBox other(QMessageBox::Critical, QStringLiteral("Torvane"), QStringLiteral("text"));
        QVERIFY(!other.iconPixmap().isNull());
        applyDesktopLook(dark);
    }

    void the_scroll_bar_of_a_long_text_does_not_dazzle() {
        QPlainTextEdit field(QStringLiteral("a\nlong\ntext\n").repeated(20));
        field.resize(200, 80);
        field.show();
        QVERIFY(QTest::qWaitForWindowExposed(&field));
        QVERIFY(field.verticalScrollBar()->isVisible());
        QVERIFY(meanGreyOf(imageOf(*field.verticalScrollBar())) < 0x70);
    }

    void every_text_can_be_read_on_its_ground_data() {
        QTest::addColumn<QPalette::ColorGroup>("group");
        QTest::addColumn<QPalette::ColorRole>("text");
        QTest::addColumn<QPalette::ColorRole>("ground");
        QTest::newRow("box") << QPalette::Active << QPalette::WindowText << QPalette::Window;
        QTest::newRow("field") << QPalette::Active << QPalette::Text << QPalette::Base;
        QTest::newRow("button") << QPalette::Active << QPalette::ButtonText << QPalette::Button;
        QTest::newRow("inactive") << QPalette::Inactive << QPalette::WindowText << QPalette::Window;
        QTest::newRow("other rows") << QPalette::Active << QPalette::Text << QPalette::AlternateBase;
        QTest::newRow("dead") << QPalette::Disabled << QPalette::WindowText << QPalette::Window;
        QTest::newRow("hint") << QPalette::Active << QPalette::PlaceholderText << QPalette::Base;
    }
    void every_text_can_be_read_on_its_ground() {
        QFETCH(QPalette::ColorGroup, group);
        QFETCH(QPalette::ColorRole, text);
        QFETCH(QPalette::ColorRole, ground);
        const QPalette palette = QApplication::palette();
        // 3 to 1 is what the guidelines ask of what is not in use, 4.5 to 1 of all other texts.
        const double wanted = group == QPalette::Disabled ? 3.0 : 4.5;
        QVERIFY(contrastOf(palette.color(group, text), palette.color(group, ground)) >= wanted);
    }

    // Qt's style makes the edge of a menu a darker shade of the ground colour, and prints disabled entries
    // twice, a pixel apart, the second time in the light colour.
    void a_menu_stands_out_from_dark_windows_and_its_disabled_entries_are_sharp() {
        const QPalette palette = QApplication::palette("QMenu");
        const QColor edge = palette.color(QPalette::Window).darker(140);
        QVERIFY(contrastOf(edge, palette.color(QPalette::Base)) > 1.3);
        QCOMPARE(palette.color(QPalette::Disabled, QPalette::Light).alpha(), 0);
        QVERIFY(contrastOf(palette.color(QPalette::Disabled, QPalette::Text),
                           palette.color(QPalette::Base)) >= 3.0);
        QVERIFY(contrastOf(palette.color(QPalette::Text), palette.color(QPalette::Base)) >= 4.5);
    }

    void the_selection_and_a_tool_tip_can_be_read() {
        const QPalette palette = QApplication::palette();
        QVERIFY(contrastOf(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)) >
                3.0);
        const QPalette tip = QToolTip::palette();
        QVERIFY(contrastOf(tip.color(QPalette::ToolTipText), tip.color(QPalette::ToolTipBase)) >= 4.5);
    }
};

TORVANE_TEST(DesktopLookTest)
#include "DesktopLookTest.moc"

// SPDX-License-Identifier: MIT
// The link label: jumps, events, hover, size and saved state.
#include "toolkit/vbwHyperlink.h"
#include "PanelForm.h"
#include "WithoutPictures.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace torvane;

namespace {
struct LinkForm : PanelForm {
    vbwHyperlink link{
        *this, "URL_Linker", {20, 20, 45, 16}, {.font = Fonts::T9u, .fore = Colours::system(7)}};

    void send(QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::NoButton) {
        QMouseEvent event(type, place, link.mapToGlobal(place), button, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&link, &event);
    }
    void leave() {
        QEvent event(QEvent::Leave);
        QCoreApplication::sendEvent(&link, &event);
    }
};

// The rows of an image in which a line of that colour runs from one side to the other.
int linesOf(const QImage& image, const QColor& colour) {
    int lines = 0;
    for (int y = 0; y < image.height(); ++y) {
        int hits = 0;
        for (int x = 0; x < image.width(); ++x) hits += image.pixelColor(x, y) == colour ? 1 : 0;
        if (hits >= image.width() - 2) ++lines;
    }
    return lines;
}
} // namespace

class vbwHyperlinkTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { removePictures(); }

    void user_click_hands_the_address_over_as_it_stands_data() {
        QTest::addColumn<QString>("url");
        for (const char* url : {"http://torvane.example/faq", "www.torvane.example/no scheme",
                                "mailto:a@b.example", "ftp://x", "", "<b>&amp;"}) {
            QTest::newRow(*url == 0 ? "empty" : url) << QString::fromLatin1(url);
        }
    }

    void user_click_hands_the_address_over_as_it_stands() {
        QFETCH(QString, url);
        LinkForm form;
        form.link.setURL(url);
        form.link.UserClick();
        QCOMPARE(form.browser.urls, QStringList{url});
    }

    void after_the_jump_not_found_says_whether_it_opened() {
        LinkForm form;
        QSignalSpy after(&form.link, &vbwHyperlink::AfterJump);
        form.link.UserClick();
        form.browser.found = false;
        form.link.UserClick();
        QCOMPARE(after.size(), 2);
        QCOMPARE(after[0][0].toBool(), false);
        QCOMPARE(after[1][0].toBool(), true);
    }

    void cancel_stops_the_jump_but_restores_the_look() {
        LinkForm form;
        form.send(QEvent::MouseMove, {3, 3});
        QCOMPARE(form.link.ForeColor(), OleColour(255));
        QSignalSpy after(&form.link, &vbwHyperlink::AfterJump);
        connect(&form.link, &vbwHyperlink::BeforeJump, &form.link, [](bool& cancel) { cancel = true; });
        form.link.UserClick();
        QVERIFY(form.browser.urls.isEmpty());
        QCOMPARE(after.size(), 0);
        QCOMPARE(form.link.ForeColor(), Colours::system(7));
    }

    void user_click_without_any_hover_makes_the_look_black_and_plain() {
        LinkForm form;
        QVERIFY(form.link.Font().underline);
        form.link.UserClick();
        QCOMPARE(form.link.ForeColor(), OleColour(0));
        QVERIFY(!form.link.Font().underline);
    }

    void hover_shows_its_colour_and_leaving_brings_the_look_back() {
        LinkForm form;
        form.link.setHoverUnderline(false);
        form.send(QEvent::MouseMove, {3, 3});
        form.send(QEvent::MouseMove, {4, 3});
        QCOMPARE(form.link.ForeColor(), OleColour(255));
        QVERIFY(!form.link.Font().underline);
        form.leave();
        QCOMPARE(form.link.ForeColor(), Colours::system(7));
        QVERIFY(form.link.Font().underline);
    }

    void a_link_is_painted_in_its_colours_and_underlined() {
        LinkForm form;
        form.link.setCaption(QStringLiteral("un enlace"));
        form.link.setForeColor(0x804020);
        form.link.setBackColor(0x00FFFF);
        const QColor fore(0x20, 0x40, 0x80);
        QCOMPARE(linesOf(imageOf(form.link), fore), 1);
        QCOMPARE(imageOf(form.link).pixelColor(0, 0), QColor(0xFF, 0xFF, 0));
        form.send(QEvent::MouseMove, {3, 3});
        QCOMPARE(linesOf(imageOf(form.link), Qt::red), 1);
        form.leave();
        form.link.setHoverUnderline(false);
        form.send(QEvent::MouseMove, {3, 3});
        QCOMPARE(linesOf(imageOf(form.link), Qt::red), 0);
        QVERIFY(hasColour(imageOf(form.link), Qt::red));
        QVERIFY(!hasColour(imageOf(form.link), fore));
        form.leave();
        QCOMPARE(linesOf(imageOf(form.link), fore), 1);
    }

    void dragging_out_with_a_held_button_ends_the_hover() {
        LinkForm form;
        form.send(QEvent::MouseMove, {3, 3});
        form.send(QEvent::MouseMove, {3, 300});
        QCOMPARE(form.link.ForeColor(), Colours::system(7));
        form.send(QEvent::MouseButtonRelease, {3, 300}, Qt::LeftButton);
        QVERIFY(form.browser.urls.isEmpty());
    }

    void the_pointer_over_the_link_is_a_hand() {
        LinkForm form;
        QEnterEvent enter({3, 3}, {3, 3}, form.link.mapToGlobal(QPointF(3, 3)));
        QCoreApplication::sendEvent(&form.link, &enter);
        QCOMPARE(form.link.cursor().shape(), Qt::PointingHandCursor);
    }

    void release_over_the_link_is_the_click() {
        LinkForm form;
        form.link.setURL(QStringLiteral("http://a"));
        form.send(QEvent::MouseMove, {3, 3});
        form.send(QEvent::MouseButtonRelease, {3, 3}, Qt::LeftButton);
        QCOMPARE(form.browser.urls, QStringList{QStringLiteral("http://a")});
        QCOMPARE(form.link.ForeColor(), Colours::system(7));
    }

    void release_without_a_hover_before_is_no_click() {
        LinkForm form;
        form.send(QEvent::MouseButtonRelease, {3, 3}, Qt::LeftButton);
        QVERIFY(form.browser.urls.isEmpty());
    }

    void auto_size_follows_caption_and_font() {
        LinkForm form;
        form.link.setCaption(QStringLiteral("un enlace"));
        const QSize small = form.link.size();
        QCOMPARE(small.width(),
                 QFontMetrics(Fonts::of(Fonts::T9u)).horizontalAdvance(QStringLiteral("un enlace")));
        form.link.setCaption(QStringLiteral("un enlace mucho más largo"));
        QVERIFY(form.link.width() > small.width());
        const int width = form.link.width();
        form.link.setFontSpec(Fonts::M8);
        QVERIFY(form.link.width() < width);
        form.showAndWait();
        form.link.resize(10, 10);
        QVERIFY(form.link.width() > 10);
    }

    void without_auto_size_the_control_keeps_its_size() {
        LinkForm form;
        form.link.setAutoSize(false);
        form.link.resize(45, 16);
        form.link.setCaption(QStringLiteral("un enlace mucho más largo"));
        QCOMPARE(form.link.size(), QSize(45, 16));
    }

    void design_stores_only_font_and_fore_colour() {
        LinkForm form;
        PropertyBag bag;
        form.link.WriteProperties(bag);
        QCOMPARE(bag.names().join(u' '), QStringLiteral("Font ForeColor"));
    }

    void saved_values_are_read_again_and_missing_ones_are_defaults() {
        LinkForm form;
        form.link.setCaption(QStringLiteral("Web"));
        form.link.setURL(QStringLiteral("x"));
        form.link.setHoverColour(0x00FF00);
        form.link.setHoverUnderline(false);
        form.link.setAutoSize(false);
        form.link.setBackColor(0x4A3933);
        form.link.setEnabled(false);
        PropertyBag bag;
        form.link.WriteProperties(bag);
        QCOMPARE(bag.names().join(u' '),
                 QStringLiteral("HoverColour HoverUnderline Caption AutoSize URL Font ForeColor "
                                "BackColor Enabled"));
        LinkForm other;
        other.link.ReadProperties(bag);
        QCOMPARE(other.link.Caption(), QStringLiteral("Web"));
        QCOMPARE(other.link.URL(), QStringLiteral("x"));
        QCOMPARE(other.link.HoverColour(), OleColour(0x00FF00));
        QVERIFY(!other.link.HoverUnderline() && !other.link.AutoSize() && !other.link.Enabled());
        QCOMPARE(other.link.BackColor(), OleColour(0x4A3933));
        other.link.ReadProperties(PropertyBag());
        QCOMPARE(other.link.HoverColour(), OleColour(255));
        QCOMPARE(other.link.ForeColor(), OleColour(0));
        QCOMPARE(other.link.BackColor(), OleColour(0x8000000F));
        QVERIFY(other.link.HoverUnderline() && other.link.AutoSize() && other.link.Enabled());
    }

    void a_link_that_is_disabled_or_set_in_another_font_as_a_plain_widget_knows_it() {
        LinkForm form;
        const QSize before = form.link.size();
        QWidget& plain = form.link;
        plain.setFont(Fonts::of({FontSpec::Verdana, 18, true}));
        QVERIFY(form.link.width() > before.width() && form.link.height() > before.height());
        plain.setEnabled(false);
        QVERIFY(!form.link.Enabled());
        PropertyBag bag;
        form.link.WriteProperties(bag);
        QCOMPARE(bag.ReadProperty(QStringLiteral("Enabled"), true), false);
    }

    void hover_leaves_the_size_as_it_is() {
        LinkForm form;
        form.link.setAutoSize(false);
        form.link.resize(200, 40);
        form.link.setAutoSize(true);
        const QSize fitted = form.link.size();
        form.send(QEvent::MouseMove, {3, 3});
        QCOMPARE(form.link.size(), fitted);
        form.leave();
        QCOMPARE(form.link.size(), fitted);
    }

    void disabled_link_takes_no_mouse() {
        LinkForm form;
        form.link.setEnabled(false);
        form.send(QEvent::MouseMove, {3, 3});
        QCOMPARE(form.link.ForeColor(), Colours::system(7));
    }
};

TORVANE_TEST(vbwHyperlinkTest)
#include "vbwHyperlinkTest.moc"

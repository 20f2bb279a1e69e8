// SPDX-License-Identifier: MIT
// Printing from both windows of the gallery: the question, the page, and printers that fail.
#include "catalogue/TagInput.h"
#include "support/OpenedGallery.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class GalleryPrintTest : public OpenedGallery {
    Q_OBJECT

    void openWith(const QString& name, const QByteArray& bytes = bmpBytes()) {
        picture(name, bytes);
        openGallery();
    }
    void clickPrint(int answer = MsgBoxFlags::answerYes) {
        messages().answer = answer;
        click(window().ChameleonButton9);
    }
    void clickPrintEnlarged(int answer = MsgBoxFlags::answerYes) {
        messages().answer = answer;
        click(view().ChameleonButton2);
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // The gallery
    void the_gallery_asks_first_with_the_name_of_the_file() {
        openWith(u"a.bmp"_s);
        clickPrint(MsgBoxFlags::answerNo);
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().last(), text("printing") + u"a.bmp. ¿OK?"_s);
        QCOMPARE(messages().boxes.first().title, u"Impresión de Captura"_s);
        QCOMPARE(messages().boxes.first().flags, 36);
        QVERIFY(printer().pages.isEmpty());
    }
    void the_gallery_prints_its_heading_and_the_picture_in_its_own_size() {
        openWith(u"a.bmp"_s, bmpBytes({160, 144}));
        clickPrint();
        QCOMPARE(printer().pages.size(), 1);
        const PrintedPage& page = printer().pages.first();
        QCOMPARE(page.heading, text("gallerytitle") + u"["_s + text("printed1") + u"a.bmp "_s +
                                   text("printed2") + u" "_s + TagInput::todayAsText() + u"]"_s);
        QCOMPARE(page.pictureAt, QPoint(300, 300));
        QCOMPARE(page.picture.size(), QSize(160, 144));
        QCOMPARE(page.picture.bytes(), bmpBytes({160, 144}));
        QCOMPARE(messages().boxes.size(), 1);
    }
    void the_gallery_prints_all_of_a_large_picture() {
        openWith(u"a.jpg"_s, jpegBytes({900, 700}));
        clickPrint();
        QCOMPARE(printer().pages.first().picture.size(), QSize(900, 700));
    }
    void the_gallery_prints_the_stock_picture_for_a_png() {
        openWith(u"a.png"_s, pngBytes());
        clickPrint();
        QCOMPARE(printer().pages.first().picture.size(), QSize(460, 265));
        QVERIFY(printer().pages.first().heading.contains(u"a.png "_s));
    }
    void a_picture_is_printed_as_it_is_shown_whatever_has_become_of_its_file() {
        openWith(u"a.bmp"_s, bmpBytes({20, 10}));
        enlarge();
        QVERIFY(QFile::remove(opened->world.folder.path(shot(u"a.bmp"_s))));
        clickPrint();
        clickPrintEnlarged();
        QCOMPARE(printer().pages.size(), 2);
        for (const PrintedPage& page : printer().pages) QCOMPARE(page.picture.size(), QSize(20, 10));
        QCOMPARE(messages().boxes.size(), 2);
    }
    void a_name_that_is_no_text_is_shown_as_far_as_it_is_one() {
        opened->world.folder.writeNative(shots.toUtf8() + "/no\xFFutf8.bmp", bmpBytes());
        openGallery();
        clickPrint();
        QCOMPARE(messages().last(), text("printing") + u"no\uFFFDutf8.bmp. ¿OK?"_s);
        QVERIFY(printer().pages.first().heading.contains(u"no\uFFFDutf8.bmp"_s));
    }

    // The enlarged view
    void the_enlarged_view_asks_first() {
        openWith(u"a.bmp"_s);
        enlarge();
        clickPrintEnlarged(MsgBoxFlags::answerNo);
        QCOMPARE(messages().last(), text("advice"));
        QCOMPARE(messages().boxes.first().title, text("title"));
        QCOMPARE(messages().boxes.first().flags, 36);
        QVERIFY(printer().pages.isEmpty());
    }
    void the_enlarged_view_prints_the_bare_picture_in_its_own_size_whatever_the_zoom() {
        openWith(u"a.bmp"_s, bmpBytes({160, 144}));
        enlarge();
        click(view().ChameleonButton3);
        QCOMPARE(view().IMG_BIG.size(), QSize(320, 288));
        clickPrintEnlarged();
        QCOMPARE(printer().pages.size(), 1);
        const PrintedPage& page = printer().pages.first();
        QCOMPARE(page.heading, QString());
        QCOMPARE(page.pictureAt, QPoint(100, 100));
        QCOMPARE(page.picture.size(), QSize(160, 144));
    }

    // Printers
    void a_printer_that_fails_is_reported_and_the_program_goes_on() {
        openWith(u"a.bmp"_s);
        printer().fails = true;
        clickPrint();
        QCOMPARE(messages().boxes.size(), 2);
        QVERIFY(messages().last().contains(u"482"_s));
        enlarge();
        clickPrintEnlarged();
        QVERIFY(messages().last().contains(u"482"_s));
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(window().isVisible() && view().isVisible());
    }
    void without_a_printer_a_pdf_is_saved() {
        openWith(u"a.bmp"_s);
        printer().exists = false;
        opened->world.dialogs.answer = opened->world.folder.path(u"page.pdf"_s);
        clickPrint();
        QCOMPARE(opened->world.dialogs.questions.size(), 1);
        QCOMPARE(opened->world.dialogs.questions.first().filter, u"PDF|*.pdf"_s);
        QCOMPARE(opened->world.dialogs.questions.first().fileName, u"a.pdf"_s);
        QVERIFY(opened->world.folder.read(u"page.pdf"_s).startsWith("%PDF"));
    }
    void without_a_printer_and_without_a_file_nothing_happens() {
        openWith(u"a.bmp"_s);
        printer().exists = false;
        enlarge();
        clickPrintEnlarged();
        QCOMPARE(opened->world.dialogs.questions.size(), 1);
        QCOMPARE(opened->world.dialogs.questions.first().fileName, u"a.pdf"_s);
        QCOMPARE(messages().boxes.size(), 1);
    }
    void a_pdf_that_cannot_be_written_is_reported() {
        openWith(u"a.bmp"_s);
        printer().exists = false;
        opened->world.dialogs.answer = opened->world.folder.path(u"missing/page.pdf"_s);
        clickPrint();
        QCOMPARE(messages().boxes.size(), 2);
        QCOMPARE(opened->world.ends, 0);
    }
    void both_windows_ask_for_a_pdf_by_their_titles() {
        openWith(u"a.one.bmp"_s);
        printer().exists = false;
        clickPrint();
        enlarge();
        clickPrintEnlarged();
        const auto& asked = opened->world.dialogs.questions;
        QCOMPARE(asked.size(), 2);
        QCOMPARE(asked[0].title, text("gallerytitle"));
        QCOMPARE(asked[1].title, text("title"));
        for (const FileQuestion& question : asked) {
            QCOMPARE(question.filter, u"PDF|*.pdf"_s);
            QCOMPARE(question.fileName, u"a.pdf"_s);
        }
    }
    void the_enlarged_view_prints_all_of_a_picture_that_is_shown_smaller() {
        openWith(u"a.bmp"_s, bmpBytes({900, 700}));
        enlarge();
        click(view().ChameleonButton4);
        clickPrintEnlarged();
        QCOMPARE(printer().pages.first().picture.size(), QSize(900, 700));
    }
};

TORVANE_TEST(GalleryPrintTest)
#include "GalleryPrintTest.moc"

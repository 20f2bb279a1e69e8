// SPDX-License-Identifier: MIT
// Printed pages, and what happens to them where there is no printer: rendered and measured.
#include "platform/forms/PagePdf.h"
#include "support/Failing.h"
#include "support/FakeDesktop.h"
#include "support/PdfPage.h"
#include "support/PictureBytes.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
constexpr int margin = 24; // pixels of the design: 18 points
const FileQuestion question{u"Save"_s, u"PDF|*.pdf"_s, 1, u"page.pdf"_s};
} // namespace

class PagePdfTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FakeDesktop> desktop;

    QString pdf() const { return desktop->folder.path(u"page.pdf"_s); }
    // The page on a system without a printer.
    PdfPage saved(const PrintedPage& page) {
        desktop->printer.exists = false;
        desktop->dialogs.answer = pdf();
        desktop->runtime.print(page, question);
        return PdfPage(pdf());
    }
    static PrintedPage pageOf(const QString& heading, const QImage& picture, QPoint at = {300, 300}) {
        return {heading, picture.isNull() ? PictureFile() : PictureFile(bmpOf(picture)), at};
    }

private slots:
    void init() {
        QLocale::setDefault(QLocale::c());
        desktop = std::make_unique<FakeDesktop>();
    }

    void the_picture_is_at_its_place_in_its_own_size_and_colours() {
        const QImage picture = motley(160, 144);
        const PdfPage page = saved(pageOf({}, picture));
        QVERIFY(page.isReadable());
        QVERIFY(page.shows(picture, {margin + 20, margin + 20}));
        QCOMPARE(page.inked(page.paper()), QRect(margin + 20, margin + 20, 160, 144));
    }
    void another_place_moves_the_picture() {
        const PdfPage page = saved(pageOf({}, motley(10, 10), {105, 1500}));
        QCOMPARE(page.inked(page.paper()), QRect(margin + 7, margin + 100, 10, 10));
    }
    void the_heading_is_one_line_above_the_picture() {
        const PdfPage page = saved(pageOf(u"Torvane [Captura game.jpg]"_s, motley(160, 144)));
        QCOMPARE(page.text(), u"Torvane [Captura game.jpg]"_s);
        const QRect ink = page.inked({0, 0, page.paper().width(), margin + 20});
        QVERIFY2(ink.left() >= margin && ink.left() <= margin + 2, qPrintable(QString::number(ink.left())));
        QVERIFY(ink.top() >= margin);
        QVERIFY(ink.height() >= 8 && ink.bottom() < margin + 20);
        QVERIFY(ink.width() > 100);
    }
    void a_heading_is_plain_text_data() {
        QTest::addColumn<QString>("heading");
        for (const char* heading : {"<b>bold</b> &amp; <br>", "&File && %1 %s", "Señor ¿Uh? « » €.gif"}) {
            QTest::newRow(heading) << QString::fromUtf8(heading);
        }
    }
    void a_heading_is_plain_text() {
        QFETCH(QString, heading);
        QCOMPARE(saved(pageOf(heading, motley(10, 10))).text(), heading);
    }
    void a_heading_with_a_line_break_stays_one_line() {
        const PdfPage page = saved(pageOf(u"one\ntwo"_s, {}));
        QCOMPARE(page.text().simplified(), u"one two"_s);
        QVERIFY(page.inked(page.paper()).height() < 15);
    }
    void a_heading_wider_than_the_paper_is_printed_smaller() {
        const PdfPage page = saved(pageOf(QString(300, u'W'), motley(10, 10)));
        QCOMPARE(page.text(), QString(300, u'W'));
        const QRect ink = page.inked({0, 0, page.paper().width(), margin + 20});
        QVERIFY(ink.right() <= page.paper().right() - margin);
        QVERIFY(ink.width() > page.paper().width() / 2);
    }
    void nothing_is_cut_off_a_picture_that_just_fits() {
        const QImage picture = motley(700, 1000);
        const PdfPage page = saved(pageOf({}, picture));
        QVERIFY(page.shows(picture, {margin + 20, margin + 20}));
    }
    void a_picture_larger_than_the_paper_keeps_its_size() {
        const QImage picture = motley(2000, 1500);
        const PdfPage page = saved(pageOf({}, picture));
        QVERIFY(page.shows(picture.copy(0, 0, 700, 1000), {margin + 20, margin + 20}));
        QVERIFY(qAbs(page.size().width() - 595) < 1);
    }
    void what_of_a_picture_does_not_fit_the_paper_is_not_in_the_document() {
        // A4 has 794 by 1123 pixels.
        saved(pageOf({}, motley(750, 1079)));
        const qint64 fitting = QFileInfo(pdf()).size();
        saved(pageOf({}, motley(4000, 2500)));
        const qint64 cut = QFileInfo(pdf()).size();
        QVERIFY2(cut < fitting * 11 / 10, qPrintable(QString::number(cut)));
    }
    void a_picture_beyond_the_paper_leaves_it_empty() {
        const PdfPage page = saved(pageOf({}, motley(10, 10), {30000, 300}));
        QVERIFY(page.isReadable() && page.inked(page.paper()).isEmpty());
    }
    void a_page_without_picture_and_heading_is_empty() {
        const PdfPage page = saved({});
        QVERIFY(page.isReadable());
        QVERIFY(page.inked(page.paper()).isEmpty());
    }
    void the_paper_is_that_of_the_region() {
        QVERIFY(qAbs(saved({}).size().height() - 842) < 1);
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(saved({}).size(), QSizeF(612, 792));
    }
    void an_invalid_layout_is_a_failure_of_the_printer() {
        QCOMPARE(failureOf([] { pdfOf({}, {}); }), std::optional<int>(RuntimeFailure::printer));
    }

    void a_saved_document_bears_the_name_of_the_program() {
        QGuiApplication::setApplicationDisplayName(u"Señor Program"_s);
        QCOMPARE(saved({}).title(), u"Señor Program"_s);
    }

    void with_a_printer_nothing_is_asked() {
        desktop->runtime.print(pageOf(u"heading"_s, motley(10, 10)), question);
        QCOMPARE(desktop->printer.pages.size(), 1);
        QCOMPARE(desktop->printer.pages.first().heading, u"heading"_s);
        QVERIFY(desktop->dialogs.questions.isEmpty());
    }
    void without_a_printer_the_user_is_asked_for_a_file() {
        saved({});
        QCOMPARE(desktop->dialogs.questions.size(), 1);
        QCOMPARE(desktop->dialogs.questions.first().fileName, question.fileName);
        QVERIFY(desktop->printer.pages.isEmpty());
    }
    void nothing_is_written_if_the_user_cancels() {
        desktop->printer.exists = false;
        desktop->runtime.print({}, question);
        QVERIFY(desktop->folder.entries().isEmpty());
    }
    void a_file_that_cannot_be_written_stays_as_it_was() {
        desktop->folder.write(u"page.pdf"_s, "old");
        desktop->printer.exists = false;
        desktop->dialogs.answer = pdf();
        const FullDisk full(100);
        QCOMPARE(failureOf([&] { desktop->runtime.print(pageOf({}, motley(100, 100)), question); }),
                 std::optional<int>(RuntimeFailure::diskFull));
        QCOMPARE(desktop->folder.read(u"page.pdf"_s), QByteArray("old"));
    }
    void a_failing_printer_is_reported_and_the_program_goes_on() {
        desktop->printer.fails = true;
        desktop->runtime.reporting([&] { desktop->runtime.print({}, question); });
        QVERIFY(desktop->messages.last().contains(u"482"_s));
        QCOMPARE(desktop->ends, 0);
    }
};

TORVANE_TEST(PagePdfTest)
#include "PagePdfTest.moc"

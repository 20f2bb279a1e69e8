// SPDX-License-Identifier: MIT
// The real message boxes and file dialogs, looked at and answered while they stand.
#include "platform/forms/DesktopDialogs.h"
#include "platform/base/NativeText.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <array>
#include <functional>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
// Takes the addresses that would go to the desktop, as it would get them.
class OpenedAddresses : public QObject {
    Q_OBJECT

public:
    OpenedAddresses() {
        for (const char* scheme : schemes)
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "take");
    }
    ~OpenedAddresses() override {
        for (const char* scheme : schemes) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QStringList seen;

public slots:
    void take(const QUrl& url) { seen += QString::fromLatin1(url.toEncoded()); }

private:
    static constexpr std::array schemes = {"http", "https",  "file", "javascript", "data",
                                           "ftp",  "mailto", "smb",  "about",      "ssh"};
};

QStringList hostileTexts() {
    return {u"a b"_s,
            u"\"; touch x; \""_s,
            u"'; touch x; '"_s,
            u"$(touch x)"_s,
            u"`touch x`"_s,
            u"a\nb"_s,
            u"a\r\nHost: b"_s,
            u"%0a%00"_s,
            u"javascript:alert(1)"_s,
            u"&d_op=other#end"_s,
            u"--help"_s,
            QString(QChar(0)) + u'x',
            u"\u00f1\U0001F3AE"_s,
            QString(QChar(0xDCF1)),
            u"\x01\x1b\x7f"_s,
            QString(100'000, u'x'),
            QString(100'000, u'"')};
}
} // namespace

class DesktopDialogsTest : public QObject {
    Q_OBJECT

    bool looked = false;

    // Looks at the box or dialog that the event loop comes to, and closes it if the look does not.
    template <typename Dialog>
    void whenShown(const std::function<void(Dialog&)>& look) {
        QTimer::singleShot(0, this, [this, look] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            looked = true;
            look(*dialog);
            // A look that has failed on its way leaves the dialog standing, and the test with it.
            if (dialog->isVisible()) dialog->reject();
        });
    }
    // The answer to a box that is closed by one of its buttons.
    int answerBy(QMessageBox::StandardButton button, int flags) {
        whenShown<QMessageBox>([button](QMessageBox& box) {
            QVERIFY(box.button(button) != nullptr);
            box.button(button)->click();
        });
        return DesktopMessageBoxes().MsgBox(u"text"_s, flags);
    }

private slots:
    void init() { looked = false; }
    void cleanup() { QVERIFY(QApplication::activeModalWidget() == nullptr); }

    void the_text_of_a_box_is_plain() {
        const QString text = u"<b>x</b> &amp; <img src='/x'>\n\n100 %1"_s;
        whenShown<QMessageBox>([&](QMessageBox& box) {
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.text(), text);
            box.accept();
        });
        DesktopMessageBoxes().MsgBox(text, 64);
        QVERIFY(looked);
    }
    void a_long_word_makes_no_box_wider_than_the_screen_data() {
        QTest::addColumn<QString>("word");
        QTest::newRow("letters") << QString(255, u'W');
        QTest::newRow("beyond 16 bits") << u"\U0001F3AE"_s.repeated(120);
        QTest::newRow("letters with accents of their own") << u"e\u0301"_s.repeated(200);
    }
    void a_long_word_makes_no_box_wider_than_the_screen() {
        QFETCH(QString, word);
        const QString text = u"the name "_s + word + u".bmp. OK?"_s;
        whenShown<QMessageBox>([&](QMessageBox& box) {
            QVERIFY2(box.width() < 700, qPrintable(QString::number(box.width())));
            QCOMPARE(box.text().remove(QChar(0x200B)), text);
            QVERIFY(!box.text().contains(u"\u200B\u0301"_s));
            box.accept();
        });
        DesktopMessageBoxes().MsgBox(text, 36);
        QVERIFY(looked);
    }
    void a_text_of_any_length_leaves_the_button_in_reach() {
        const QString text(1 << 20, u'W');
        whenShown<QMessageBox>([&](QMessageBox& box) {
            QVERIFY(box.text().size() < 10'000);
            QVERIFY(box.text().startsWith(u"WWWW"_s) && box.text().endsWith(u'…'));
            const QRect screen = box.screen()->geometry();
            QVERIFY(box.width() <= screen.width() && box.height() <= screen.height());
            box.accept();
        });
        DesktopMessageBoxes().MsgBox(text, 64);
        QVERIFY(looked);
    }
    void a_box_bears_the_title_or_else_the_applications_name() {
        QApplication::setApplicationDisplayName(u"Torvane"_s);
        const auto titled = [](const QString& title) {
            return [title](QMessageBox& box) {
                QVERIFY2(box.windowTitle().startsWith(title), qPrintable(box.windowTitle()));
                box.accept();
            };
        };
        whenShown<QMessageBox>(titled(u"Atención"_s));
        DesktopMessageBoxes().MsgBox(u"text"_s, 0, u"Atención"_s);
        whenShown<QMessageBox>(titled(u"Torvane"_s));
        DesktopMessageBoxes().MsgBox(u"text"_s, 0);
    }
    void the_flags_choose_the_icon_and_the_buttons_data() {
        QTest::addColumn<int>("flags");
        QTest::addColumn<QMessageBox::Icon>("icon");
        QTest::addColumn<bool>("asks");
        QTest::newRow("0") << 0 << QMessageBox::NoIcon << false;
        QTest::newRow("16") << 16 << QMessageBox::Critical << false;
        QTest::newRow("36") << 36 << QMessageBox::Question << true;
        QTest::newRow("48") << 48 << QMessageBox::Warning << false;
        QTest::newRow("52") << 52 << QMessageBox::Warning << true;
        QTest::newRow("64") << 64 << QMessageBox::Information << false;
    }
    void the_flags_choose_the_icon_and_the_buttons() {
        QFETCH(int, flags);
        QFETCH(QMessageBox::Icon, icon);
        QFETCH(bool, asks);
        whenShown<QMessageBox>([=](QMessageBox& box) {
            QCOMPARE(box.icon(), icon);
            const QMessageBox::StandardButtons buttons =
                asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::StandardButtons(QMessageBox::Ok);
            QCOMPARE(box.standardButtons(), buttons);
            box.reject();
        });
        DesktopMessageBoxes().MsgBox(u"text"_s, flags);
        QVERIFY(looked);
    }
    void yes_is_6_and_no_is_7() {
        QCOMPARE(answerBy(QMessageBox::Yes, 36), 6);
        QCOMPARE(answerBy(QMessageBox::No, 36), 7);
        QCOMPARE(answerBy(QMessageBox::Yes, 52), 6);
    }
    void ok_is_1() { QCOMPARE(answerBy(QMessageBox::Ok, 48), 1); }
    void the_escape_key_means_no() {
        whenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        QCOMPARE(DesktopMessageBoxes().MsgBox(u"text"_s, 36), 7);
        QVERIFY(looked);
    }
    void closing_a_question_means_no() {
        whenShown<QMessageBox>([](QMessageBox& box) { box.close(); });
        QCOMPARE(DesktopMessageBoxes().MsgBox(u"text"_s, 52), 7);
    }

    void pairs_of_a_filter_become_name_filters_data() {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QStringList>("filters");
        QTest::newRow("one") << u"ROM|*.gb"_s << QStringList{u"ROM (*.gb)"_s};
        QTest::newRow("several patterns") << u"ROM|*.gb;*.gbc"_s << QStringList{u"ROM (*.gb *.gbc)"_s};
        QTest::newRow("two") << u"ROM|*.gb|ZIP|*.zip"_s << QStringList{u"ROM (*.gb)"_s, u"ZIP (*.zip)"_s};
        QTest::newRow("a pair without pattern") << u"nothing||ZIP|*.zip"_s << QStringList{u"ZIP (*.zip)"_s};
        QTest::newRow("half a pair at the end") << u"ROM|*.gb|rest"_s << QStringList{u"ROM (*.gb)"_s};
        QTest::newRow("no pair") << u"rest"_s << QStringList{};
        QTest::newRow("empty") << QString() << QStringList{};
    }
    void pairs_of_a_filter_become_name_filters() {
        QFETCH(QString, filter);
        QFETCH(QStringList, filters);
        QCOMPARE(DesktopFileDialogs::nameFilters(filter), filters);
    }
    void the_open_dialog_asks_for_an_existing_file_with_the_chosen_filter() {
        whenShown<QFileDialog>([](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Abrir"_s);
            QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
            QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptOpen);
            QCOMPARE(dialog.nameFilters(), (QStringList{u"ROM (*.gb)"_s, u"ZIP (*.zip)"_s}));
            QCOMPARE(dialog.selectedNameFilter(), u"ZIP (*.zip)"_s);
            dialog.reject();
        });
        const FileQuestion question{u"Abrir"_s, u"ROM|*.gb|ZIP|*.zip"_s, 2, {}};
        QCOMPARE(DesktopFileDialogs().showOpen(question), QString());
        QVERIFY(looked);
    }
    void a_filter_number_outside_of_the_filters_does_no_harm() {
        for (const int index : {-1, 0, 3}) {
            whenShown<QFileDialog>([](QFileDialog& dialog) {
                QCOMPARE(dialog.selectedNameFilter(), u"ROM (*.gb)"_s);
                dialog.reject();
            });
            QCOMPARE(DesktopFileDialogs().showOpen({u"x"_s, u"ROM|*.gb"_s, index, {}}), QString());
        }
    }
    void the_chosen_file_comes_back_as_a_spelled_path_of_its_bytes() {
        const TestFolder folder;
        const QString spelled = folder.writeNative("Pok\xC3\xA9 two  blanks.gb", "x");
        whenShown<QFileDialog>([&](QFileDialog& dialog) {
            dialog.selectFile(QFile::decodeName(NativeText::toNative(spelled)));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        QCOMPARE(DesktopFileDialogs().showOpen({u"x"_s, {}, 1, {}}), spelled);
    }
    void the_save_dialog_proposes_the_name_and_gives_a_path_that_need_not_exist() {
        const TestFolder folder;
        const QString proposed = folder.path() + u"\\new game.gb"_s;
        whenShown<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(dialog.selectedFiles(), QStringList{folder.path() + u"/new game.gb"_s});
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        QCOMPARE(DesktopFileDialogs().showSave({u"x"_s, u"ROM|*.gb"_s, 1, proposed}),
                 folder.path() + u"/new game.gb"_s);
        QVERIFY(looked);
    }
    void the_folder_dialog_asks_for_an_existing_folder_and_gives_its_path() {
        const TestFolder folder;
        folder.makeFolder(u"my games"_s);
        whenShown<QFileDialog>([&](QFileDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Carpeta"_s);
            QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
            dialog.setDirectory(folder.path());
            dialog.selectFile(folder.path(u"my games"_s));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
        QCOMPARE(DesktopFileDialogs().showFolder({u"Carpeta"_s, {}, 1, {}}), folder.path(u"my games"_s));
        whenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        QCOMPARE(DesktopFileDialogs().showFolder({u"Carpeta"_s, {}, 1, {}}), QString());
    }
    void an_empty_address_is_not_opened() { QVERIFY(!DesktopBrowser().open(QString())); }
    void pages_and_files_are_opened_as_they_are_addressed_data() {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("opened");
        QTest::newRow("page") << u"http://a.example/x?y=1"_s << u"http://a.example/x?y=1"_s;
        QTest::newRow("secure page") << u"https://a.example/x"_s << u"https://a.example/x"_s;
        QTest::newRow("capitals") << u"HTTP://a.example/X"_s << u"http://a.example/X"_s;
        QTest::newRow("without scheme") << u"www.a.example"_s << u"http://www.a.example"_s;
        QTest::newRow("file") << u"file:///tmp/a%20b.html"_s << u"file:///tmp/a%20b.html"_s;
        QTest::newRow("blank") << u"http://a.example/?q=a b"_s << u"http://a.example/?q=a%20b"_s;
    }
    void pages_and_files_are_opened_as_they_are_addressed() {
        QFETCH(QString, address);
        QFETCH(QString, opened);
        const OpenedAddresses addresses;
        QVERIFY(DesktopBrowser().open(address));
        QCOMPARE(addresses.seen, QStringList{opened});
    }
    void no_other_address_is_opened() {
        const OpenedAddresses addresses;
        for (const QString& address :
             {u"javascript:alert(1)"_s, u"javascript://x/%0aalert(1)"_s, u"data:text/html,<b>x"_s,
              u"ftp://a.example/x"_s, u"mailto:a@b.example"_s, u"smb://a.example/x"_s, u"about:blank"_s,
              u"ssh://a.example"_s, u" "_s, u"\n"_s}) {
            QVERIFY2(!DesktopBrowser().open(address), qPrintable(address));
        }
        QCOMPARE(addresses.seen, QStringList());
    }
    void whatever_stands_in_an_address_stays_one_address_data() {
        QTest::addColumn<QString>("text");
        for (const QString& text : hostileTexts()) QTest::addRow("%s", qPrintable(text.left(20))) << text;
    }
    void whatever_stands_in_an_address_stays_one_address() {
        QFETCH(QString, text);
        const OpenedAddresses addresses;
        DesktopBrowser().open(u"http://a.example/search?query="_s + text);
        QVERIFY(addresses.seen.size() <= 1);
        for (const QString& opened : addresses.seen) {
            QVERIFY(opened.startsWith(u"http://a.example/search?query="_s));
            for (const QChar c : opened) QVERIFY(c > u' ' && c < QChar(0x7F) && c != u'"' && c != u'`');
        }
    }
};

TORVANE_TEST(DesktopDialogsTest)
#include "DesktopDialogsTest.moc"

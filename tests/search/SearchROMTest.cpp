// SPDX-License-Identifier: MIT
// The window that searches the web for a game: the address, and its life.
#include "support/OpenedSearch.h"
#include "support/TestMain.h"

#include <QUrl>
#include <qtestspontaneevent.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class SearchROMTest : public OpenedSearch {
    Q_OBJECT

    const QString path = u"/modules.php?name=Edonkey&d_op=search&query="_s;

    SearchROM& window() const { return *loaded<SearchROM>(); }
    bool isGone() const { return loaded<SearchROM>() == nullptr; }
    void useHost(const QByteArray& host) const {
        opened->world.folder.write(u"data/hosts.ini"_s, "[Hosts]\r\nsearch=" + host + "\r\n");
    }

private slots:
    void init() {
        start();
        opened->games(1);
        useHost("http://s.example");
        opened->open();
    }
    void cleanup() { end(); }

    void the_main_window_opens_it_and_stays_usable() {
        openWeb();
        QVERIFY(main().isVisible() && main().isEnabled());
        QCOMPARE(window().windowHandle()->transientParent(), main().windowHandle());
        QCOMPARE(window().Label1.Caption(), u"Torvane 1.1 » Search for a ROM"_s);
        QCOMPARE(window().Label4.Caption(), window().Label2.Caption());
        QCOMPARE(window().Label5.Caption(), window().Label3.Caption());
        QCOMPARE(window().Label2.Caption(), opened->text("SearchROM", "message1"));
        QCOMPARE(window().Label3.Caption(), opened->text("SearchROM", "message2"));
        QCOMPARE(window().ChameleonButton17.Caption(), opened->text("SearchROM", "search"));
        window().Label2.setCaption(u"a"_s);
        window().Label3.setCaption(u"b"_s);
        QCOMPARE(window().Label4.Caption(), u"a"_s);
        QCOMPARE(window().Label5.Caption(), u"b"_s);
    }
    void the_button_opens_the_address_with_the_text_and_closes() {
        openWeb();
        QVERIFY(window().CRYTextBox1.isAncestorOf(window().focusWidget()));
        typeText(*window().focusWidget(), u"zelda"_s);
        click(window().ChameleonButton17);
        QCOMPARE(urls(), QStringList{u"http://s.example"_s + path + u"zelda"_s});
        QVERIFY(isGone());
        QVERIFY(main().isVisible());
    }
    void return_in_the_box_does_the_same() {
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            openWeb().CRYTextBox1.setText(u"x"_s);
            key(window(), enter);
            QVERIFY(isGone());
        }
        QCOMPARE(urls().size(), 2);
    }
    void an_empty_text_only_closes() {
        openWeb();
        click(window().ChameleonButton17);
        QVERIFY(isGone());
        openWeb();
        key(window(), Qt::Key_Return);
        QVERIFY(isGone());
        QCOMPARE(urls(), QStringList());
    }
    void every_text_goes_into_the_address_as_it_stands_data() {
        QTest::addColumn<QString>("text");
        for (const QString& text :
             {u" "_s, u"two words"_s, u"a&b=c#d?e"_s, u"100 %41"_s, u"ñandú"_s, u"\"'<b>"_s, u"$(touch x)"_s,
              u"`touch x`"_s, u"; rm -rf /"_s, u"a\nb"_s, u"javascript:alert(1)"_s, u"http://other.example"_s,
              u"../../x"_s, u"\\"_s, QString(QChar(0xDCF1)), QString(100'000, u'x')}) {
            QTest::addRow("%s", qPrintable(text.left(20))) << text;
        }
    }
    void every_text_goes_into_the_address_as_it_stands() {
        QFETCH(QString, text);
        openWeb().CRYTextBox1.setText(text);
        click(window().ChameleonButton17);
        QCOMPARE(urls(), QStringList{u"http://s.example"_s + path + text});
        QVERIFY(isGone());
        QCOMPARE(messages().boxes.size(), 0);
    }
    void a_host_that_is_a_folder_shows_its_page_whatever_is_searched() {
        useHost("data/site");
        for (const QString& text : {u"zelda"_s, u"../../../etc/passwd"_s, u"a?b#c"_s, u"&name=FAQ"_s}) {
            openWeb().CRYTextBox1.setText(text);
            click(window().ChameleonButton17);
            const QString page = u"/data/site/modules-name-Edonkey-d_op-search-query.html"_s;
            QCOMPARE(QUrl(urls().last()).toLocalFile(), opened->world.folder.path() + page);
        }
        QVERIFY(QFile::exists(QStringLiteral(TORVANE_TREE_DIR) +
                              u"/data/site/modules-name-Edonkey-d_op-search-query.html"_s));
    }
    void it_closes_without_a_search_data() {
        QTest::addColumn<int>("how");
        QTest::newRow("button") << 0;
        QTest::newRow("escape") << 1;
        QTest::newRow("window manager") << 2;
    }
    void it_closes_without_a_search() {
        QFETCH(int, how);
        openWeb().CRYTextBox1.setText(u"text"_s);
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        if (how == 0) click(window().chameleonButton1);
        if (how == 1) key(window(), Qt::Key_Escape);
        if (how == 2) window().close();
        QVERIFY(isGone());
        QCOMPARE(urls(), QStringList());
        QCOMPARE(openWeb().CRYTextBox1.Text(), QString());
    }
    void brought_back_by_the_desktop_it_leaves_the_focus_where_it_was() {
        openWeb().ChameleonButton17.setFocus();
        QShowEvent again;
        QSpontaneKeyEvent::setSpontaneous(&again);
        qApp->notify(&window(), &again);
        QVERIFY(window().ChameleonButton17.hasFocus());
    }
    void a_browser_that_cannot_be_started_is_passed_over() {
        opened->world.browser.found = false;
        openWeb().CRYTextBox1.setText(u"x"_s);
        click(window().ChameleonButton17);
        QVERIFY(isGone());
        QCOMPARE(messages().boxes.size(), 0);
        QCOMPARE(opened->world.ends, 0);
    }
};

TORVANE_TEST(SearchROMTest)
#include "SearchROMTest.moc"

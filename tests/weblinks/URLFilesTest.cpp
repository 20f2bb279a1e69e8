// SPDX-License-Identifier: MIT
// The web list over files of any content, and over what is no file: it reports, and can be used.
#include "support/OpenedWeblist.h"
#include "support/TestMain.h"

#include <random>
#include <sys/stat.h>

using namespace torvane;
using namespace Qt::StringLiterals;

class URLFilesTest : public OpenedWeblist {
    Q_OBJECT

    static constexpr const char* bothFiles[] = {"data/url.dat", "data/url_perso.dat"};

    // The fatal error is reported, and the page of questions opened.
    void checkReported() {
        QCOMPARE(messages().boxes.size(), 1);
        QCOMPARE(messages().boxes.first().title, u"KESTRA Halyard Kernel"_s);
        QCOMPARE(messages().boxes.first().flags, 16);
        QCOMPARE(urls().size(), 1);
        QVERIFY(urls().first().endsWith(u"/modules-name-FAQ.html"_s));
        urls().clear();
    }
    void selectAll() {
        for (int row = 0; row < window().ListView1.rowCount() && row < 5; ++row) chooseRow(row);
        QVERIFY(window().isVisible());
        QCOMPARE(opened->world.ends, 0);
    }
    static QByteArray noise(unsigned seed, int length) {
        std::mt19937 random(seed);
        QByteArray bytes(length, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        return bytes;
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    // What can't be read
    void a_file_that_cannot_be_read_is_reported_and_the_window_stays_usable_data() {
        QTest::addColumn<bool>("isShared");
        QTest::addColumn<QByteArray>("kind");
        for (const char* kind : {"missing", "unreadable", "folder", "pipe", "too large", "link to itself"}) {
            QTest::addRow("shared, %s", kind) << true << QByteArray(kind);
            QTest::addRow("personal, %s", kind) << false << QByteArray(kind);
        }
    }
    void a_file_that_cannot_be_read_is_reported_and_the_window_stays_usable() {
        QFETCH(bool, isShared);
        QFETCH(QByteArray, kind);
        writeShared(pandocs + emulator);
        writePersonal(mine);
        publish(emulator);
        const QByteArray path = folder().native(bothFiles[isShared ? 0 : 1]);
        if (kind == "unreadable") {
            QCOMPARE(chmod(path, 0), 0);
        } else if (kind == "too large") {
            QCOMPARE(truncate(path, 100 << 20), 0);
        } else {
            QCOMPARE(unlink(path), 0);
        }
        if (kind == "folder") QCOMPARE(mkdir(path, 0777), 0);
        if (kind == "pipe") QCOMPARE(mkfifo(path, 0666), 0);
        if (kind == "link to itself") QCOMPARE(symlink(isShared ? "url.dat" : "url_perso.dat", path), 0);
        opened->open();
        {
            const OrdinaryUser user;
            clickList();
        }
        checkReported();
        // The shared pages are there if it was the user's own list that failed.
        QCOMPARE(rows(), isShared ? QStringList() : QStringList({u"Pan Docs"_s, u"An emulator"_s}));
        QCOMPARE(window().TotalRom.Caption(), u"0000"_s);
        QVERIFY(!canDelete());
        checkIsUsable();
        click(window().chameleonButton1);
        QVERIFY(main().isVisible());
    }
    void after_a_missing_shared_list_an_update_brings_one() {
        opened->open();
        QVERIFY(QFile::remove(folder().path(u"data/url.dat"_s)));
        publish(pandocs);
        clickList();
        checkReported();
        clickUpdate();
        QCOMPARE(rows(), QStringList{u"Pan Docs"_s});
    }
    void after_a_missing_personal_list_an_addition_makes_one() {
        openList(pandocs);
        click(window().chameleonButton1);
        collectGone();
        QVERIFY(QFile::remove(folder().path(u"data/url_perso.dat"_s)));
        clickList();
        checkReported();
        addPage(u"N"_s, u"http://a"_s);
        QCOMPARE(personal(), "\r\nN;http://a;perso\r\n");
        QCOMPARE(rows(), (QStringList{u"Pan Docs"_s, u"N"_s}));
    }

    // Content
    void a_first_row_without_an_entry_is_a_failure_of_the_load() {
        openList("One field alone\r\n");
        checkReported();
        QCOMPARE(rows(), QStringList{u"One field alone"_s});
        QVERIFY(window().isVisible());
    }
    void lines_of_any_number_of_fields_are_listed_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("row");
        QTest::addColumn<bool>("isEntry");
        QTest::newRow("0") << QByteArray() << QString() << false;
        QTest::newRow("1") << "a"_ba << u"a"_s << false;
        QTest::newRow("2") << "a;b"_ba << u"a"_s << false;
        QTest::newRow("3") << "a;b;c"_ba << u"a"_s << true;
        QTest::newRow("4") << "a;b;c;d"_ba << u"a"_s << true;
        QTest::newRow("blank") << " "_ba << u" "_s << false;
        QTest::newRow("separators") << ";;;;;;"_ba << u""_s << true;
        QTest::newRow("dollar signs") << "$$;$$;$$"_ba << u"$$"_s << true;
        QTest::newRow("zero bytes") << "\0;\0;\0"_ba << u"\0"_s << true;
        QTest::newRow("markup") << "<h1>&amp;;<a href=x>;<b>"_ba << u"<h1>&amp"_s << true;
        QTest::newRow("end of file character") << "a\x1A;b;c"_ba << u"a\x1A"_s << true;
    }
    void lines_of_any_number_of_fields_are_listed() {
        QFETCH(QByteArray, line);
        QFETCH(QString, row);
        QFETCH(bool, isEntry);
        openList(pandocs + line + "\r\n");
        QCOMPARE(rows().value(1), row);
        QCOMPARE(window().ListView1.rowCount(), line.isEmpty() ? 1 : 2);
        QCOMPARE(window().List1.ListCount(), isEntry ? 2 : 1);
        selectAll();
        QCOMPARE(messages().boxes.size(), isEntry || line.isEmpty() ? 0 : 1);
    }
    void binary_files_are_listed_and_can_be_clicked_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("noise") << noise(1, 50'000);
        QTest::newRow("separators everywhere") << noise(2, 3000).replace('a', ';').replace('b', "$;\r");
        QTest::newRow("zero bytes") << QByteArray(100'000, '\0');
        QTest::newRow("line ends") << "\r\r\n\n\r\n"_ba.repeated(5000);
        QTest::newRow("semicolons") << QByteArray(1 << 20, ';');
        QTest::newRow("dollar signs") << QByteArray(1 << 20, '$') + ";b;perso";
        QTest::newRow("line of 1 MiB") << QByteArray(1 << 20, 'x') + ";http://a;perso";
        QTest::newRow("address of 1 MiB") << "a;http://" + QByteArray(1 << 20, 'x') + ";perso";
        QTest::newRow("blanks") << QByteArray(1 << 20, ' ') + ";http://a;perso";
    }
    void binary_files_are_listed_and_can_be_clicked() {
        QFETCH(QByteArray, bytes);
        openList(pandocs + bytes + "\r\n", bytes);
        selectAll();
        QVERIFY(rows().contains(u"Pan Docs"_s));
        click(window().chameleonButton1);
        QVERIFY(main().isVisible());
    }
    void a_hundred_thousand_pages_are_listed() {
        openList(pandocs.repeated(100'000));
        QCOMPARE(window().TotalRom.Caption(), u"100000"_s);
        QTest::keyClick(window().windowHandle(), Qt::Key_End);
        QCOMPARE(window().OrderNumber.Caption(), u"100000"_s);
    }
};

TORVANE_TEST(URLFilesTest)
#include "URLFilesTest.moc"

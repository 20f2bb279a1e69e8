// SPDX-License-Identifier: MIT
// The web lists of the installed tree, read as bytes by a strict parser of this test's own.
#include "support/TestMain.h"

#include <QFile>
#include <QSet>
#include <QTest>
#include <QUrl>
#include <algorithm>

namespace torvane {

class WebListFilesTest : public QObject {
    Q_OBJECT

    static QByteArray bytesOf(const QString& name) {
        QFile file(TORVANE_TREE_DIR "/data/" + name);
        if (!file.open(QIODevice::ReadOnly)) qFatal("no file %s", qPrintable(name));
        return file.readAll();
    }
    static QByteArrayList linesOf(const QByteArray& file) {
        return file.chopped(2).replace("\r\n", "\n").split('\n');
    }
    static void lists() {
        QTest::addColumn<QByteArray>("file");
        for (const char* name : {"url.dat", "site/url.dat"}) QTest::newRow(name) << bytesOf(name);
    }

private slots:
    void every_line_is_a_name_an_address_and_the_word_of_the_shared_list_data() { lists(); }
    void every_line_is_a_name_an_address_and_the_word_of_the_shared_list() {
        QFETCH(QByteArray, file);
        QVERIFY(file.endsWith("\r\n"));
        QCOMPARE(file.count("\r\n"), file.count('\n'));
        QCOMPARE(file.count("\r\n"), file.count('\r'));
        for (const QByteArray& line : linesOf(file)) {
            const QByteArrayList fields = line.split(';');
            QVERIFY2(fields.size() == 3 && fields[2] == "system", line);
            QVERIFY2(!fields[0].isEmpty() && fields[0].simplified() == fields[0], line);
            QVERIFY2(!line.contains('$'), line);
        }
    }
    void every_name_is_short_and_of_plain_letters_data() { lists(); }
    void every_name_is_short_and_of_plain_letters() {
        QFETCH(QByteArray, file);
        for (const QByteArray& line : linesOf(file)) {
            const QByteArray name = line.split(';').first();
            QVERIFY2(name.size() <= 32, name);
            QVERIFY2(std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; }),
                     name);
        }
    }
    void every_address_is_that_of_a_page_which_is_there_once_data() { lists(); }
    void every_address_is_that_of_a_page_which_is_there_once() {
        QFETCH(QByteArray, file);
        QSet<QByteArray> seen;
        for (const QByteArray& line : linesOf(file)) {
            const QByteArray address = line.split(';').at(1);
            const QUrl url = QUrl::fromEncoded(address, QUrl::StrictMode);
            QVERIFY2(url.isValid() && url.scheme() == "https" && url.host().contains('.'), address);
            QCOMPARE(url.toEncoded(), address);
            QVERIFY2(!seen.contains(address), address);
            seen.insert(address);
        }
    }
    void about_twenty_pages_come_with_the_program() { QCOMPARE(linesOf(bytesOf("url.dat")).size(), 20); }
    void the_host_has_all_of_them_and_newer_ones() {
        const QByteArray installed = bytesOf("url.dat");
        const QByteArray newer = bytesOf("site/url.dat");
        QVERIFY(newer.startsWith(installed));
        QVERIFY(linesOf(newer).size() > linesOf(installed).size());
    }
    void the_users_own_list_is_empty() { QCOMPARE(bytesOf("url_perso.dat"), QByteArray()); }
};

} // namespace torvane

using torvane::WebListFilesTest;
TORVANE_APPLESS_TEST(WebListFilesTest)
#include "WebListFilesTest.moc"

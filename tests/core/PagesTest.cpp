// SPDX-License-Identifier: MIT
// The pages that the program opens in the browser: in a copy without servers each is a file of the tree, and
// whatever a user types in a search leads to the one search page.
#include "core/Pages.h"
#include "platform/forms/DesktopDialogs.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QDesktopServices>
#include <QDirIterator>
#include <QXmlStreamReader>

using namespace torvane;

namespace {
const QString siteOfTree = QStringLiteral(TORVANE_TREE_DIR "/data/site/");

// The addresses that reach the desktop, as QDesktopServices hands them over.
class OpenedUrls : public QObject {
    Q_OBJECT

public:
    OpenedUrls() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~OpenedUrls() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    QList<QUrl> urls;

public slots:
    void open(const QUrl& url) { urls.append(url); }
};

struct Html {
    QString fault;
    QString title;
    QStringList elements;
    QStringList links; // of every attribute that loads or opens something
    QStringList languages;
    QStringList attributes;
};

void readElement(QXmlStreamReader& xml, Html& html) {
    html.elements.append(xml.name().toString());
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        const QString name = attribute.name().toString();
        html.attributes.append(name);
        if (name == u"href" || name == u"src" || name == u"action")
            html.links.append(attribute.value().toString());
        if (name == u"lang") html.languages.append(attribute.value().toString());
    }
    if (xml.name() == u"title") html.title = xml.readElementText();
}

// HTML that is well-formed XML, too: no parser has to guess at it.
Html parsed(const QByteArray& bytes) {
    Html html;
    QXmlStreamReader xml(bytes);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement) readElement(xml, html);
    }
    if (xml.hasError())
        html.fault = QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
    return html;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class PagesTest : public QObject {
    Q_OBJECT

    Globals globals;
    Hosts hosts{globals};

    // The HTML files of the site: those that windows ask for, and those that they link to.
    static void addRowsOfSite() {
        QTest::addColumn<QString>("path");
        QDirIterator files(siteOfTree, {QStringLiteral("*.html")}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            QTest::newRow(qPrintable(path.mid(siteOfTree.size()))) << path;
        }
    }

private slots:
    void init() { globals.AppPath = QStringLiteral(TORVANE_TREE_DIR); }

    void every_page_is_a_file_of_the_tree_data() {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(Pages::all.size()); ++i) QTest::newRow(Pages::all[i].path.data()) << i;
    }
    void every_page_is_a_file_of_the_tree() {
        QFETCH(int, index);
        OpenedUrls opened;
        QVERIFY(DesktopBrowser().open(hosts.address(Pages::all[index])));
        QCOMPARE(opened.urls.size(), 1);
        const QUrl url = opened.urls.first();
        QVERIFY2(url.isLocalFile() && !url.hasQuery() && !url.hasFragment(), url.toEncoded());
        QVERIFY2(QFileInfo(url.toLocalFile()).isFile(), url.toEncoded());
        QCOMPARE(QFileInfo(url.toLocalFile()).path() + QLatin1Char('/'), siteOfTree);
    }
    void each_page_has_a_file_of_its_own() {
        QSet<QString> addresses;
        for (const Hosts::Page& page : Pages::all) addresses.insert(hosts.address(page));
        QCOMPARE(addresses.size(), qsizetype(Pages::all.size()));
    }
    void the_pages_open_wherever_the_program_lies_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : {"a b", "two  blanks ", "100%", "%41", "#1", "what?", "Señor", "q\"'",
                                 "a;b&c=d", "no utf8 \xF1"})
            QTest::newRow(name) << QByteArray(name);
    }
    void the_pages_open_wherever_the_program_lies() {
        QFETCH(QByteArray, name);
        const TestFolder folder;
        QCOMPARE(mkdir(folder.native(name).constData(), 0755), 0);
        globals.AppPath = NativeText::fromNative(folder.native(name));
        OpenedUrls opened;
        QVERIFY(DesktopBrowser().open(hosts.address(Pages::questions)));
        QCOMPARE(opened.urls.size(), 1);
        const QByteArray address = opened.urls.first().toEncoded();
        QCOMPARE(QByteArray::fromPercentEncoding(address),
                 "file://" + folder.native(name) + "/data/site/modules-name-FAQ.html");
    }

    void whatever_is_typed_leads_to_the_one_search_page_data() {
        QTest::addColumn<QString>("typed");
        QTest::newRow("word") << QStringLiteral("tetris");
        QTest::newRow("blanks") << QStringLiteral(" two  words ");
        QTest::newRow("folder above") << QStringLiteral("../../../../etc/passwd");
        QTest::newRow("encoded folder above") << QStringLiteral("%2e%2e%2f%2e%2e");
        QTest::newRow("backslashes") << QStringLiteral("..\\..\\x");
        QTest::newRow("NUL") << QStringLiteral("a\u0000b");
        QTest::newRow("paragraph sign") << QStringLiteral("§");
        QTest::newRow("quotes") << QStringLiteral("\"'`");
        QTest::newRow("more keys") << QStringLiteral("a&b=c&query=d");
        QTest::newRow("marks") << QStringLiteral("a?b#c;d|$(e)");
        QTest::newRow("line break") << QStringLiteral("a\r\nb");
        QTest::newRow("half a pair") << QString(QChar(0xD800));
        QTest::newRow("a million") << QString(1000000, QLatin1Char('x'));
    }
    void whatever_is_typed_leads_to_the_one_search_page() {
        QFETCH(QString, typed);
        QCOMPARE(hosts.address(Pages::searchResults, typed), hosts.address(Pages::searchResults));
    }
    void a_search_server_gets_what_is_typed_unchanged() {
        const TestFolder folder;
        folder.write(QStringLiteral("data/hosts.ini"), "[Hosts]\nsearch=http://s.example\n");
        globals.AppPath = folder.path();
        QCOMPARE(hosts.address(Pages::searchResults, QStringLiteral("a b&§\"")),
                 QStringLiteral("http://s.example/modules.php?name=Edonkey&d_op=search&query=a b&§\""));
    }

    void no_other_source_spells_the_address_of_a_page() {
        QDirIterator sources(QStringLiteral(TORVANE_TESTS_DIR "/../src"),
                             {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                             QDirIterator::Subdirectories);
        QStringList found;
        while (sources.hasNext()) {
            const QString path = sources.next();
            const QString code =
                QString::fromUtf8(contentOf(path))
                    .remove(QRegularExpression(QStringLiteral("//.*$"), QRegularExpression::MultilineOption));
            if (code.contains(QStringLiteral(".php"))) found.append(QFileInfo(path).fileName());
        }
        QCOMPARE(found, QStringList{QStringLiteral("Pages.h")});
    }

    void every_html_file_is_well_formed_data() { addRowsOfSite(); }
    void every_html_file_is_well_formed() {
        QFETCH(QString, path);
        const QByteArray bytes = contentOf(path);
        QVERIFY(bytes.startsWith("<!DOCTYPE html>\n"));
        QVERIFY(bytes.contains("<meta charset=\"utf-8\" />"));
        QVERIFY(bytes.contains("<meta name=\"viewport\""));
        const Html html = parsed(bytes);
        QCOMPARE(html.fault, QString());
        QVERIFY(html.title.contains(QStringLiteral("Torvane")));
        QCOMPARE(html.elements.count(QStringLiteral("h1")), 1);
    }
    void every_html_file_speaks_three_languages_data() { addRowsOfSite(); }
    void every_html_file_speaks_three_languages() {
        QFETCH(QString, path);
        QStringList languages = parsed(contentOf(path)).languages;
        languages.removeDuplicates();
        QCOMPARE(languages, (QStringList{QStringLiteral("en"), QStringLiteral("es"), QStringLiteral("ca")}));
    }
    void no_html_file_runs_or_loads_anything_foreign_data() { addRowsOfSite(); }
    void no_html_file_runs_or_loads_anything_foreign() {
        QFETCH(QString, path);
        const Html html = parsed(contentOf(path));
        for (const char* element : {"script", "iframe", "object", "embed", "img", "form", "base"})
            QVERIFY2(!html.elements.contains(QString::fromLatin1(element)), element);
        for (const QString& attribute : html.attributes)
            QVERIFY2(!attribute.startsWith(u"on") && attribute != u"style", qPrintable(attribute));
        const QDir folder = QFileInfo(path).dir();
        for (const QString& link : html.links) {
            if (link.startsWith(u'#')) continue;
            const QString target = QDir::cleanPath(folder.filePath(link.section(u'#', 0, 0)));
            QVERIFY2(target.startsWith(siteOfTree) && QFileInfo(target).isFile(), qPrintable(link));
        }
    }
    void the_style_sheet_loads_nothing() {
        const QByteArray css = contentOf(siteOfTree + QStringLiteral("site.css"));
        QVERIFY(!css.isEmpty());
        QVERIFY(!css.contains("url(") && !css.contains("@import"));
    }
};

TORVANE_TEST(PagesTest)
#include "PagesTest.moc"

// SPDX-License-Identifier: MIT
// Includes point one way: no file includes a higher layer, no module a widget, no window another window.
#include "support/IncludeRules.h"
#include "support/TestMain.h"

#include <QFile>
#include <QtTest>

using namespace torvane;
using namespace Qt::StringLiterals;

using Tree = QMap<QString, QString>;

class IncludesTest : public QObject {
    Q_OBJECT

    QStringList windows;

    QStringList faultsOf(const Tree& tree) const {
        IncludeRules rules(windows);
        for (auto file = tree.begin(); file != tree.end(); ++file) rules.add(file.key(), file.value());
        return rules.faults();
    }

    static void addOffence(const char* name, const Tree& tree, const char* fault) {
        QTest::newRow(name) << tree << QString::fromUtf8(fault);
    }

private slots:
    void initTestCase() {
        QFile table(QStringLiteral(TORVANE_TESTS_DIR "/catalogue/windows.tsv"));
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QList<QByteArray> rows = table.readAll().trimmed().split('\n');
        for (const QByteArray& row : rows.sliced(1))
            windows.append(QString::fromUtf8(row.split('\t').first()));
        QCOMPARE(windows.size(), 21);
    }

    void the_sources_keep_all_rules() {
        IncludeRules rules(windows);
        const int files = rules.readFolder(QStringLiteral(TORVANE_TESTS_DIR "/../src"));
        QVERIFY2(files > 100, qPrintable(u"only %1 files were found"_s.arg(files)));
        const QStringList faults = rules.faults();
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void an_allowed_include_is_no_fault() {
        const Tree tree{
            {u"platform/base/File.h"_s,
             u"#include <QString>\n#include <QtCore/QList>\n#include <fcntl.h>\n"_s},
            {u"platform/base/Paths.h"_s, u"#include \"File.h\"\n"_s},
            {u"platform/forms/Form.h"_s, u"#include \"../base/Paths.h\"\n#include <QWidget>\n"_s},
            {u"toolkit/Shaper.h"_s, u"#include \"platform/forms/Form.h\"\n#include <QPainter>\n"_s},
            {u"core/Globals.h"_s, u"#include <QString>\n"_s},
            {u"core/Desk.h"_s, u"#include \"Globals.h\"\n#include \"platform/base/File.h\"\n"_s},
            {u"catalogue/ID3.h"_s, u"#include \"core/Globals.h\"\n#include <vector>\n"_s},
            {u"search/Pages.h"_s, u"#include \"catalogue/ID3.h\"\n"_s},
            {u"tags/Row.h"_s, u"#include \"core/Globals.h\"\n#include <QByteArray>\n"_s},
            {u"tags/List.cpp"_s,
             u"#include \"Row.h\"\n#include \"catalogue/ID3.h\"\n#include \"platform/base/File.h\"\n"_s},
            {u"core/splash/Splash.design.h"_s, u"#include \"toolkit/Shaper.h\"\n"_s},
            {u"core/splash/Splash.h"_s, u"#include \"Splash.design.h\"\n#include \"core/Desk.h\"\n"_s},
            {u"core/splash/Splash.cpp"_s, u"#include \"Splash.h\"\n#include \"Splash.moc\"\n"_s},
            {u"mainwindow/MainFrm.actions.cpp"_s, u"#include \"search/Pages.h\"\n"_s},
            {u"app/main.cpp"_s, u"#include \"core/splash/Splash.h\"\n#include \"art/ArtResources.h\"\n"_s},
        };
        QCOMPARE(faultsOf(tree).join(u'\n'), QString());
    }

    void a_fault_is_reported_with_file_line_and_include_data() {
        QTest::addColumn<Tree>("tree");
        QTest::addColumn<QString>("fault");
        const QString form = u"platform/forms/Form.h"_s;
        const QString splash = u"core/splash/Splash.h"_s;
        addOffence("from base up to forms",
                   {{form, {}}, {u"platform/base/File.h"_s, u"\n#include \"../forms/Form.h\"\n"_s}},
                   "platform/base/File.h:2: \"../forms/Form.h\": this layer lies above or beside");
        addOffence("from forms up to a control",
                   {{u"toolkit/TVLabel.h"_s, {}}, {form, u"#include \"toolkit/TVLabel.h\""_s}},
                   "platform/forms/Form.h:1: \"toolkit/TVLabel.h\": this layer lies above or beside");
        addOffence("from a control up to a module",
                   {{u"core/Globals.h"_s, {}},
                    {u"toolkit/TVLabel.cpp"_s, u"//\n//\n  #  include \"core/Globals.h\""_s}},
                   "toolkit/TVLabel.cpp:3: \"core/Globals.h\": this layer lies above or beside");
        addOffence("from core up to another module",
                   {{u"catalogue/ID3.h"_s, {}}, {u"core/Funciones.h"_s, u"#include \"catalogue/ID3.h\""_s}},
                   "core/Funciones.h:1: \"catalogue/ID3.h\": this layer lies above or beside");
        addOffence("from a module to the forms",
                   {{form, {}}, {u"catalogue/ID3.h"_s, u"#include \"platform/forms/Form.h\""_s}},
                   "catalogue/ID3.h:1: \"platform/forms/Form.h\": this layer lies above or beside");
        addOffence(
            "from a module to a control",
            {{u"toolkit/Shaper.h"_s, {}}, {u"core/Funciones.cpp"_s, u"#include \"toolkit/Shaper.h\""_s}},
            "core/Funciones.cpp:1: \"toolkit/Shaper.h\": this layer lies above or beside");
        addOffence("from a module to a window",
                   {{splash, {}}, {u"core/Funciones.h"_s, u"#include \"splash/Splash.h\""_s}},
                   "core/Funciones.h:1: \"splash/Splash.h\": only app/ includes a window");
        addOffence(
            "from a window to another one",
            {{splash, {}}, {u"mainwindow/MainFrm.wiring.cpp"_s, u"#include \"core/splash/Splash.h\""_s}},
            "mainwindow/MainFrm.wiring.cpp:1: \"core/splash/Splash.h\": only app/ includes a window");
        addOffence(
            "from a window to the design of another one",
            {{u"core/splash/Splash.design.h"_s, {}},
             {u"toolkit/torvmsg/TorvMsg.h"_s, u"#include \"core/splash/Splash.design.h\""_s}},
            "toolkit/torvmsg/TorvMsg.h:1: \"core/splash/Splash.design.h\": only app/ includes a window");
        addOffence("from a window up to app",
                   {{u"app/Program.h"_s, {}}, {splash, u"#include \"app/Program.h\""_s}},
                   "core/splash/Splash.h:1: \"app/Program.h\": this layer lies above or beside");
        addOffence("in brackets instead of quotes",
                   {{u"app/Program.h"_s, {}}, {splash, u"#include <app/Program.h>"_s}},
                   "core/splash/Splash.h:1: \"app/Program.h\": this layer lies above or beside");
        addOffence("a file that does not exist", {{splash, u"#include \"Gone.h\""_s}},
                   "core/splash/Splash.h:1: \"Gone.h\": there is no such file");
        addOffence("a window that reaches the artwork", {{splash, u"#include \"art/ArtResources.h\""_s}},
                   "core/splash/Splash.h:1: \"art/ArtResources.h\": only app/ reaches the artwork");
    }
    void a_fault_is_reported_with_file_line_and_include() {
        QFETCH(Tree, tree);
        QFETCH(QString, fault);
        QCOMPARE(faultsOf(tree), QStringList{fault});
    }

    void a_widget_header_in_a_module_is_reported_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("header");
        for (const char* file : {"core/Hosts.cpp", "catalogue/ID3.cpp", "emulator/New.h",
                                 "platform/base/File.cpp", "tags/List.cpp"}) {
            for (const char* header : {"QWidget", "QPixmap", "qcolor.h", "QtWidgets/QLabel", "QtGui",
                                       "QtGui/QColor", "QNetworkReply"}) {
                QTest::addRow("%s %s", file, header) << QString::fromUtf8(file) << QString::fromUtf8(header);
            }
        }
    }
    void a_widget_header_in_a_module_is_reported() {
        QFETCH(QString, file);
        QFETCH(QString, header);
        const QStringList expected{u"%1:2: \"%2\": a module may use Qt Core only"_s.arg(file, header)};
        QCOMPARE(faultsOf({{file, u"#include <QString>\n#include <%1>\n"_s.arg(header)}}), expected);
        QCOMPARE(faultsOf({{file, u"//\n#include \"%1\"\n"_s.arg(header)}}), expected);
    }

    void a_circle_is_reported_with_its_whole_path() {
        const Tree tree{{u"core/A.h"_s, u"#include \"B.h\"\n"_s},
                        {u"core/B.h"_s, u"#include <QString>\n#include \"C.h\"\n"_s},
                        {u"core/C.h"_s, u"#include \"core/A.h\"\n"_s},
                        {u"core/A.cpp"_s, u"#include \"A.h\"\n"_s}};
        QCOMPARE(
            faultsOf(tree),
            QStringList{u"core/C.h:1: \"core/A.h\": a circle: core/A.h > core/B.h > core/C.h > core/A.h"_s});
    }
    void a_file_that_includes_itself_is_a_circle() {
        QCOMPARE(faultsOf({{u"core/A.h"_s, u"#include \"A.h\"\n"_s}}),
                 QStringList{u"core/A.h:1: \"A.h\": a circle: core/A.h > core/A.h"_s});
    }
    void a_circle_of_folders_is_reported_even_without_a_circle_of_files() {
        const Tree tree{{u"catalogue/ID3.h"_s, u"#include \"emulator/Shell.h\"\n"_s},
                        {u"catalogue/Tag.h"_s, {}},
                        {u"emulator/Shell.h"_s, {}},
                        {u"emulator/List.h"_s, u"#include \"catalogue/Tag.h\"\n"_s}};
        QCOMPARE(faultsOf(tree), QStringList{u"catalogue: a circle of folders: catalogue, emulator"_s});
    }
    void a_window_among_modules_is_reported() {
        QCOMPARE(faultsOf({{u"core/Globals.h"_s, {}}, {u"core/Splash.h"_s, {}}}),
                 QStringList{u"core: a window lies among modules"_s});
    }
    void two_ways_to_the_same_file_are_no_circle() {
        QCOMPARE(faultsOf({{u"core/A.h"_s, u"#include \"B.h\"\n#include \"C.h\"\n"_s},
                           {u"core/B.h"_s, u"#include \"C.h\"\n"_s},
                           {u"core/C.h"_s, {}}}),
                 QStringList{});
    }
};

TORVANE_APPLESS_TEST(IncludesTest)
#include "IncludesTest.moc"

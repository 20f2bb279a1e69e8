// SPDX-License-Identifier: MIT
// The list of emulators: which line and which part of it is used.
#include "emulator/EmulatorCatalogue.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

class EmulatorCatalogueTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    Globals globals;

    // The command after reading a list, if `previous` was the command before.
    QString commandOf(const QByteArray& list, const QString& previous = QStringLiteral("former")) const {
        folder->write(QStringLiteral("emuladores/emus.dat"), list);
        EmulatorCatalogue catalogue(globals);
        catalogue.EmulatorCommand = previous;
        catalogue.read();
        return catalogue.EmulatorCommand;
    }
    QString below(const char* path) const {
        return globals.AppPath + QStringLiteral("\\emuladores") + QString::fromUtf8(path);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        globals.AppPath = folder->path();
    }

    void the_command_is_empty_until_a_line_has_been_read() {
        EmulatorCatalogue catalogue(globals);
        QCOMPARE(catalogue.EmulatorCommand, QString());
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, QString());
    }
    void the_command_is_the_second_part_in_the_folder_of_emulators_data() {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QString>("path");
        const auto row = [](const char* name, const QByteArray& list, const char* path) {
            QTest::newRow(name) << list << QString::fromUtf8(path);
        };
        row("one line", "Name#\\emu.exe\r\n", "\\emu.exe");
        row("LF only", "Name#\\emu.exe\n", "\\emu.exe");
        row("CR only", "Name#\\emu.exe\r", "\\emu.exe");
        row("no line end", "Name#\\emu.exe", "\\emu.exe");
        row("a subfolder", "Name#\\sub\\emu.exe\r\n", "\\sub\\emu.exe");
        row("a third part is ignored", "Name#\\emu.exe#more#parts\r\n", "\\emu.exe");
        row("no name", "#\\emu.exe\r\n", "\\emu.exe");
        row("no path", "Name#\r\n", "");
        row("an empty part between two separators", "Name##\\emu.exe\r\n", "");
        row("blanks stay", "Name # \\my emu.exe \r\n", " \\my emu.exe ");
        row("8-bit letters", "Se\xF1or#\\se\xF1or\x80.exe\r\n", "\\señor€.exe");
        row("markup and format characters", "N#\\%s\"'$(x);\\..\r\n", "\\%s\"'$(x);\\..");
        row("without a leading separator", "Name#emu.exe\r\n", "emu.exe");
    }
    void the_command_is_the_second_part_in_the_folder_of_emulators() {
        QFETCH(QByteArray, list);
        QFETCH(QString, path);
        QCOMPARE(commandOf(list), globals.AppPath + QStringLiteral("\\emuladores") + path);
    }
    void a_second_line_of_the_list_is_never_used() {
        QCOMPARE(commandOf("One#\\one.exe\r\nTwo#\\two.exe\r\n"), below("\\one.exe"));
        QCOMPARE(commandOf("One#\\one.exe\nTwo#\\two.exe\n"), below("\\one.exe"));
        QCOMPARE(commandOf("no sign\r\nTwo#\\two.exe\r\n"), QStringLiteral("former"));
        QCOMPARE(commandOf("\r\nTwo#\\two.exe\r\n"), QStringLiteral("former"));
        QCOMPARE(commandOf("\nTwo#\\two.exe\n"), QStringLiteral("former"));
    }
    void without_a_separator_the_previous_command_stays_data() {
        QTest::addColumn<QByteArray>("list");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("no separator") << QByteArray("Name \\emu.exe\r\n");
        QTest::newRow("only a line end") << QByteArray("\r\n");
        QTest::newRow("separator of another code page") << QByteArray("Name\xA3\\emu.exe");
        QTest::newRow("zero bytes") << QByteArray(100, '\0');
        QTest::newRow("a line that is far too long") << QByteArray(100000, 'n') + "#\\emu.exe";
    }
    void without_a_separator_the_previous_command_stays() {
        QFETCH(QByteArray, list);
        QCOMPARE(commandOf(list), QStringLiteral("former"));
        QCOMPARE(commandOf(list, QString()), QString());
    }
    void a_missing_or_unreadable_list_leaves_the_previous_command() {
        EmulatorCatalogue catalogue(globals);
        catalogue.EmulatorCommand = QStringLiteral("former");
        catalogue.read();
        folder->makeFolder(QStringLiteral("emuladores"));
        catalogue.read();
        folder->makeFolder(QStringLiteral("emuladores/emus.dat"));
        catalogue.read();
        QVERIFY(QDir().rmdir(folder->path(QStringLiteral("emuladores/emus.dat"))));
        QCOMPARE(mkfifo(folder->native("emuladores/emus.dat").constData(), 0666), 0);
        catalogue.read();
        QVERIFY(QFile::remove(folder->path(QStringLiteral("emuladores/emus.dat"))));
        folder->write(QStringLiteral("emuladores/emus.dat"), "Name#\\emu.exe\r\n");
        folder->setMode(QStringLiteral("emuladores/emus.dat"), 0);
        const OrdinaryUser user;
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, QStringLiteral("former"));
    }
    void each_read_takes_the_current_list() {
        EmulatorCatalogue catalogue(globals);
        folder->write(QStringLiteral("emuladores/emus.dat"), "One#\\one.exe\r\n");
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, below("\\one.exe"));
        folder->write(QStringLiteral("emuladores/emus.dat"), "Two#\\two.exe\r\n");
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, below("\\two.exe"));
        QVERIFY(QFile::remove(folder->path(QStringLiteral("emuladores/emus.dat"))));
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, below("\\two.exe"));
    }
    void only_the_first_line_of_a_huge_list_is_read() {
        folder->write(QStringLiteral("emuladores/emus.dat"), "One#\\one.exe\r\n");
        QVERIFY(QFile::resize(folder->path(QStringLiteral("emuladores/emus.dat")), qint64(8) << 30));
        EmulatorCatalogue catalogue(globals);
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, below("\\one.exe"));
    }
    void the_list_shipped_with_the_program_names_a_program_in_its_folder() {
        globals.AppPath = QStringLiteral(TORVANE_TREE_DIR);
        EmulatorCatalogue catalogue(globals);
        catalogue.read();
        QCOMPARE(catalogue.EmulatorCommand, below("\\mgba.sh"));
        QVERIFY(QFileInfo(QStringLiteral(TORVANE_TREE_DIR "/emuladores/mgba.sh")).isExecutable());
    }
};

TORVANE_APPLESS_TEST(EmulatorCatalogueTest)
#include "EmulatorCatalogueTest.moc"

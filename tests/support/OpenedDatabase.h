// SPDX-License-Identifier: MIT
// Shared by the tests of the database windows: the program, a database on its host, and the windows.
#pragma once

#include "OpenedProgram.h"
#include "catalogue/TagInput.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>

namespace torvane {

/// A line of the database file: its fields in the order of the file.
inline QByteArray dbLine(const QByteArrayList& fields) { return fields.join('\xA7') + "\r\n"; }

class OpenedDatabase : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    const QByteArray tetris =
        dbLine({"byn", "TETRIS", "Nintendo", "12/03/2002", "Falling blocks", "SYSTEM", "torvane"});
    const QByteArray wario = dbLine({"color", "Wario", "Nintendo", "01/02/2003", "A thief", "user", "Ana"});
    const QByteArray metroid = dbLine({"advance", "Metroid", "Intelligent", "", "Space", "Other", "Bea"});

    void start() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(2);
    }
    void end() { opened.reset(); }
    /// What the host has for everybody, for the next download.
    void publish(const QByteArray& database) const {
        opened->world.folder.write(QStringLiteral("data/site/online_db.txt"), database);
    }
    /// Makes a server the host.
    void useServer(const QString& address) const {
        opened->world.folder.write(QStringLiteral("data/hosts.ini"),
                                   "[Hosts]\r\nupdate=" + address.toUtf8() + "\r\n");
    }
    /// Hidden files beside the program, such as a write that did not come to its end.
    QStringList hiddenNames() const {
        QStringList names = opened->world.folder.entries();
        erase_if(names, [](const QString& name) { return !name.startsWith(QLatin1Char('.')); });
        return names;
    }
    /// The local copy.
    QByteArray copy() const { return opened->world.folder.read(QStringLiteral("online_db.dat")); }

    MainFrm& main() const { return opened->main(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    EditDB& window() const { return *loaded<EditDB>(); }
    FakeMessages& messages() const { return opened->world.messages; }

    /// Opens the program and, with the button of the main window, the database; waits until it is usable.
    void openDatabase(const QByteArray& database) {
        publish(database);
        opened->open();
        clickDatabase();
    }
    void clickDatabase() {
        click(main().chameleonButton3);
        QVERIFY(QTest::qWaitForWindowExposed(loaded<EditDB>()));
        emit window().Timer1.Tick();
    }

    /// The titles in the list.
    QStringList titles() const { return column(0); }
    QStringList column(int number) const {
        QStringList texts;
        const RowModel& rows = window().ListView1.model();
        for (int row = 0; row < rows.rowCount(); ++row) texts += rows.index(row, number).data().toString();
        return texts;
    }
    QPoint rowPlace(int row) const { return window().ListView1.rowRect(row).center(); }
    void chooseRow(int row) const { click(window().ListView1, rowPlace(row)); }
    void showRow(int row) const {
        chooseRow(row);
        doubleClick(window().ListView1, rowPlace(row));
    }
    /// Opens the window that asks for a game with an entry.
    Form2& useRow(int row) const {
        chooseRow(row);
        click(window().ChameleonButton17);
        Form2* chooser = loaded<Form2>();
        if (chooser == nullptr || !QTest::qWaitForWindowExposed(chooser)) qFatal("no window for the game");
        return *chooser;
    }
    Form2& chooser() const { return *loaded<Form2>(); }
    /// Selects a game in the window that asks for one.
    void chooseGame(const QString& name) const {
        FileList& games = chooser().File1;
        for (int row = 0; row < games.ListCount(); ++row) {
            if (games.List(row) == name) click(games, games.rowRect(row).center());
        }
        QCOMPARE(games.FileName(), name);
    }
    void writeInto(const QString& name) const {
        chooseGame(name);
        click(chooser().Command1);
    }

    static QByteArray today() { return TagInput::todayAsText().toLatin1(); }
    static QByteArray oldTag(const QByteArray& size) {
        return "ID3TAG\xA7Old company\xA7Old title\xA7"
               "1/1/2001\xA7Old info\xA7" +
               size + "\xA7\r\n";
    }
};

} // namespace torvane

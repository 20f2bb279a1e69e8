// SPDX-License-Identifier: MIT
// Shared by the tests of the web list: the program, its two files of pages, and the two windows.
#pragma once

#include "Failing.h"
#include "OpenedProgram.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace torvane {

class OpenedWeblist : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    const QByteArray pandocs = "Pan Docs;https://gbdev.example/pandocs/;system\r\n";
    const QByteArray emulator = "An emulator;http://mgba.example/;system\r\n";
    const QByteArray mine = "Mine;http://mine.example/;perso\r\n";

    void start() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(1);
    }
    void end() { opened.reset(); }

    const TestFolder& folder() const { return opened->world.folder; }
    QByteArray shared() const { return folder().read(QStringLiteral("data/url.dat")); }
    QByteArray personal() const { return folder().read(QStringLiteral("data/url_perso.dat")); }
    QByteArray backup() const { return folder().read(QStringLiteral("data/url_perso.bak")); }
    QStringList files() const { return folder().entries(QStringLiteral("data")); }
    void writeShared(const QByteArray& bytes) const { folder().write(QStringLiteral("data/url.dat"), bytes); }
    void writePersonal(const QByteArray& bytes) const {
        folder().write(QStringLiteral("data/url_perso.dat"), bytes);
    }
    /// What the host has for everybody, for the next update.
    void publish(const QByteArray& list) const { folder().write(QStringLiteral("data/site/url.dat"), list); }
    /// Makes a server the host.
    void useServer(const QString& address) const {
        folder().write(QStringLiteral("data/hosts.ini"), "[Hosts]\r\nupdate=" + address.toUtf8() + "\r\n");
    }

    MainFrm& main() const { return opened->main(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    URL& window() const { return *loaded<URL>(); }
    AddPersonalWeb& dialog() const { return *loaded<AddPersonalWeb>(); }
    FakeMessages& messages() const { return opened->world.messages; }
    QStringList& urls() const { return opened->world.browser.urls; }
    /// The texts of the boxes so far.
    QStringList boxes() const {
        QStringList texts;
        for (const FakeMessages::Box& box : messages().boxes) texts += box.text;
        return texts;
    }
    QString text(const char* key) const { return opened->text("WebList", key); }

    /// Opens the program and, with the button of the main window, the list of these pages.
    void openList(const QByteArray& sharedPages, const QByteArray& personalPages = {}) {
        writeShared(sharedPages);
        writePersonal(personalPages);
        opened->open();
        clickList();
    }
    void clickList() {
        click(main().chameleonButton7);
        QVERIFY(QTest::qWaitForWindowActive(loaded<URL>()));
    }
    /// Opens the dialog that adds a page.
    void openDialog() {
        click(window().chameleonButton4);
        QVERIFY(loaded<AddPersonalWeb>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(loaded<AddPersonalWeb>()));
    }
    static QLineEdit& fieldOf(const TextBox& box) { return *box.findChild<QLineEdit*>(); }
    /// Adds a page as a user does.
    void addPage(const QString& name, const QString& address) {
        openDialog();
        fieldOf(dialog().Text1).clear();
        typeText(fieldOf(dialog().Text2), name);
        typeText(fieldOf(dialog().Text1), address);
        click(dialog().ChameleonButton17);
    }
    void chooseRow(int row) const { click(window().ListView1, window().ListView1.rowRect(row).center()); }
    void openRow(int row) const {
        chooseRow(row);
        doubleClick(window().ListView1, window().ListView1.rowRect(row).center());
    }
    void clickDelete() const { click(window().ChameleonButton2); }
    void clickUpdate() const { click(window().chameleonButton5); }

    /// The names in the list.
    QStringList rows() const {
        QStringList names;
        const RowModel& model = window().ListView1.model();
        for (int row = 0; row < model.rowCount(); ++row) names += model.index(row, 0).data().toString();
        return names;
    }
    /// Name, kind and address of the selected page, as the user sees them.
    QStringList labels() const {
        return {window().GameTitle.Caption().trimmed(), window().GameAutor.Caption(),
                window().GameDate.Caption()};
    }
    bool canDelete() const { return window().ChameleonButton2.Enabled(); }
    /// Checks that the program goes on and that the window works: its first row can be chosen.
    void checkIsUsable() const {
        QVERIFY(window().isVisible());
        QCOMPARE(opened->world.ends, 0);
        QVERIFY(!window().Inet1.StillExecuting());
        QVERIFY(!isSeen(window().Loading));
        if (window().List1.ListCount() == 0) return;
        const auto before = messages().boxes.size();
        chooseRow(0);
        QCOMPARE(window().OrderNumber.Caption(), QStringLiteral("0001"));
        QCOMPARE(messages().boxes.size(), before);
    }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Shared by the tests of the choice of the language: the program, its folder of language files, and the
// window.
#pragma once

#include "Failing.h"
#include "OpenedProgram.h"

namespace torvane {

class OpenedLanguages : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    void start() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(1);
    }
    void end() { opened.reset(); }

    /// The folder of language files, relative to that of the program, and as the program spells it.
    static inline const QString files = QStringLiteral("data/lang");
    QString folder() const { return opened->world.appPath() + QStringLiteral("\\data\\lang"); }
    QString spelled(const QString& name) const { return folder() + QLatin1Char('\\') + name; }
    QString write(const QString& name, const QByteArray& bytes) const {
        return opened->world.folder.write(files + QLatin1Char('/') + name, bytes);
    }
    QByteArray read(const QString& name) const {
        return opened->world.folder.read(files + QLatin1Char('/') + name);
    }
    QStringList entries() const { return opened->world.folder.entries(files); }
    /// What a file says of itself, whose texts all begin with the same mark.
    static QByteArray fileOf(const QByteArray& mark) {
        return "[FileInfo]\r\nhisname=" + mark + " name:\r\nlangname=" + mark + "ish\r\nhisauthor=" + mark +
               " by:\r\nfileauthor=" + mark + "er\r\nhiszone=" + mark + " zone:\r\nlangzone=" + mark +
               "land\r\nloaded=" + mark + " is loaded\r\nchanges=none\r\n";
    }

    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    MainFrm& main() const { return opened->main(); }
    SelLang& window() const { return *loaded<SelLang>(); }
    FakeMessages& messages() const { return opened->world.messages; }
    QString text(const char* key) const { return opened->text("SelLang", key); }

    void openLanguages() {
        if (opened->program == nullptr) opened->open();
        opened->program->desk.go(Window::ConfigNew, Window::SelLang);
        QVERIFY(loaded<SelLang>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(&window()));
    }
    /// Ends the program and starts it again.
    void restart() {
        opened->close();
        opened->start();
    }
    QStringList rows() const {
        QStringList names;
        for (int row = 0; row < window().File1.ListCount(); ++row) names += window().File1.List(row);
        return names;
    }
    void choose(const QString& name) const {
        const auto row = static_cast<int>(rows().indexOf(name));
        QVERIFY2(row >= 0, qPrintable(name));
        click(window().File1, window().File1.rowRect(row).center());
    }
    /// The three lines about the chosen file.
    QStringList lines() const {
        return {window().TVLabel1.Caption(), window().TVLabel2.Caption(), window().TVLabel3.Caption()};
    }
    void clickLoad() const { click(window().ChameleonButton2); }
    void clickDelete(int answer) const {
        messages().answer = answer;
        click(window().ChameleonButton3);
    }
    /// Chooses a file (spelled path) in the dialog; an empty path cancels it.
    void add(const QString& path) const {
        opened->world.dialogs.answer = path;
        click(window().ChameleonButton4);
    }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Shared by the tests of the settings: the program with its tray pictures, the control panel as the user
// opens it, and the window of the general options.
#pragma once

#include "OpenedProgram.h"

#include <QAbstractButton>

namespace torvane {

class OpenedSettings : public QObject {
protected:
    std::unique_ptr<OpenedProgram> opened;

    /// A library of one game, and a picture for each colour: one that is as bright as its number.
    void start() {
        opened = std::make_unique<OpenedProgram>();
        opened->games(1);
        for (int number = 0; number <= 6; ++number) {
            QImage picture(16, 16, QImage::Format_RGB32);
            picture.fill(brightnessOf(number));
            const QString file = QStringLiteral("data/tray/%1.dat").arg(number);
            QVERIFY(picture.save(world().folder.path(file), "PNG"));
        }
    }
    void end() { opened.reset(); }

    FakeWorld& world() const { return opened->world; }
    MainFrm& main() const { return opened->main(); }
    template <typename W>
    W* loaded() const {
        return opened->program->loaded<W>();
    }
    ConfigNew& panel() const { return *loaded<ConfigNew>(); }
    ConfGen& window() const { return *loaded<ConfGen>(); }
    FakeMessages& messages() const { return world().messages; }
    FakeDialogs& dialogs() const { return world().dialogs; }

    /// Opens the program and, with the button of the main window, the control panel.
    void openPanel() {
        opened->open();
        clickPanel();
    }
    void clickPanel() {
        click(main().chameleonButton8);
        QVERIFY(loaded<ConfigNew>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(loaded<ConfigNew>()));
    }
    /// The same, and from there the general options.
    void openOptions() {
        openPanel();
        clickOptions();
    }
    void clickOptions() {
        click(panel().chameleonButton3);
        QVERIFY(loaded<ConfGen>() != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(loaded<ConfGen>()));
    }

    /// A click on the mark of a box or an option.
    static void mark(const ToggleControl& control) { click(control, {6, 6}); }
    /// The options by their numbers.
    OptionButton& colour(int number) const { return option(QStringLiteral("Option1(%1)").arg(number)); }
    OptionButton& corner(int number) const { return option(QStringLiteral("Option2(%1)").arg(number)); }
    /// The number of the option that is chosen; -1 for none.
    int chosenColour() const { return chosenOf(QStringLiteral("Option1(%1)"), 7); }
    int chosenCorner() const { return chosenOf(QStringLiteral("Option2(%1)"), 2); }
    /// The number of the picture in the tray.
    int trayPicture() const {
        const QImage picture = main().TrayIcon1.picture().toImage();
        for (int number = 0; number <= 6; ++number) {
            if (!picture.isNull() && picture.pixelColor(5, 5) == brightnessOf(number)) return number;
        }
        return -1;
    }
    bool hasTrayIcon() const { return main().TrayIcon1.isShown(); }

    /// What the store has for all options: Tray, Icon, Mini, OnTop, Intro, Start, zip.
    QStringList stored() const {
        QStringList values;
        for (const char* key : {"Tray", "Icon", "Mini", "OnTop", "Intro", "Start", "zip"}) {
            values += world().setting(key);
        }
        return values;
    }
    QString settingsFile() const { return world().settings.fileOf(QStringLiteral("Torvane")); }
    QByteArray settingsBytes() const {
        return world().folder.read(QStringLiteral("config/Torvane/Torvane.conf"));
    }
    QString text(const char* key) const { return opened->text("Config", key); }

private:
    static QColor brightnessOf(int number) { return {20 + 30 * number, 0, 100}; }
    OptionButton& option(const QString& name) const { return *window().findChild<OptionButton*>(name); }
    int chosenOf(const QString& pattern, int count) const {
        for (int number = 0; number < count; ++number) {
            if (option(pattern.arg(number)).Value()) return number;
        }
        return -1;
    }
};

} // namespace torvane

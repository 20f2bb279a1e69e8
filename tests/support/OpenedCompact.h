// SPDX-License-Identifier: MIT
// The program with its compact window, opened from the main one, and the actions of its user.
#pragma once

#include "OpenedAssistant.h"

namespace torvane {

struct OpenedCompact : OpenedAssistant {
    /// Writes a tagged game of 4,096 bytes and the tag into the library.
    void tagged(const QString& name, const QString& title, const QString& company = QStringLiteral("Acme"),
                const QString& info = QStringLiteral("What it is")) const {
        const QString tag = QStringLiteral("ID3TAG§%1§%2§1/1/2026§%3§4096§\r\n").arg(company, title, info);
        game(name, QByteArray(4096, 'r') + "\r\n" + tag.toLatin1());
    }
    Torvette& compact() const { return *program->loaded<Torvette>(); }
    bool isCompact() const {
        const Torvette* window = program->loaded<Torvette>();
        return window != nullptr && window->isVisible() && !main().isVisible();
    }
    /// Opens the main window and then the compact one. Its timer ticks only when the test says so.
    Torvette& openCompact() {
        open();
        click(main().ChameleonButton12);
        return awaitCompact();
    }
    Torvette& awaitCompact() const {
        if (!QTest::qWaitForWindowActive(&compact())) qFatal("no compact window");
        compact().Timer1.setEnabled(false);
        return compact();
    }
    QString line() const { return compact().Text1.Text(); }
    QString shown() const { return compact().Label1.Caption(); }
    void tick() const { emit compact().Timer1.Tick(); }
    void next() const { click(compact().chameleonButton1); }
    void previous() const { click(compact().Edit_Menu); }
    void press(Qt::Key key) const { QTest::keyClick(&compact(), key); }
    void removeGames() const {
        for (const QString& name : library())
            QFile::remove(world.folder.path(QStringLiteral("roms/") + name));
    }
    /// All that the data labels show, from the number to the information.
    QStringList data() const {
        QStringList texts;
        for (const Label* label : {&compact().Label3, &compact().Label4, &compact().Label5, &compact().Label6,
                                   &compact().Label7}) {
            texts += label->Caption();
        }
        return texts;
    }
};

} // namespace torvane

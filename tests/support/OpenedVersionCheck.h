// SPDX-License-Identifier: MIT
// Shared by the tests of the version check: the control panel, and an update server or its folder.
#pragma once

#include "OpenedSettings.h"
#include "WebServer.h"

namespace torvane {

class OpenedVersionCheck : public OpenedSettings {
protected:
    /// A version file as the server has it.
    static QByteArray versionFile(const QByteArray& version) {
        return "[Torvane]\r\nLastVersion=" + version + "\r\n";
    }
    /// What the host has for everybody.
    void publish(const QByteArray& body) const {
        world().folder.write(QStringLiteral("data/site/tv_version.txt"), body);
    }
    /// Makes a server the host.
    void useServer(const WebServer& server) const {
        world().folder.write(QStringLiteral("data/hosts.ini"),
                             "[Hosts]\r\nupdate=" + server.address(QString()).toUtf8() + "\r\n");
    }
    void check() const { click(panel().chameleonButton6); }
    /// The program, the panel, and a check with what the host has.
    void checkAgainst(const QByteArray& body) {
        publish(body);
        openPanel();
        check();
    }
    /// The local copy.
    QByteArray copy() const { return world().folder.read(QStringLiteral("data/version.dat")); }
    QString text(const char* key) const { return opened->text("ControlPanel", key); }
    /// Hidden files in the folder, such as a write that did not come to its end.
    QStringList hiddenNames() const {
        QStringList names = world().folder.entries(QStringLiteral("data"));
        erase_if(names, [](const QString& name) { return !name.startsWith(QLatin1Char('.')); });
        return names;
    }

    void expectNothingNew(int boxes = 1) const {
        QCOMPARE(messages().boxes.size(), boxes);
        const FakeMessages::Box& box = messages().boxes.last();
        QCOMPARE(box.text, text("notnew"));
        QCOMPARE(box.flags, 64);
        QCOMPARE(box.title, QStringLiteral("Torvane » Updater"));
        expectUsable();
    }
    void expectUnreachable() const {
        QCOMPARE(messages().boxes.size(), 1);
        const FakeMessages::Box& box = messages().boxes.last();
        QCOMPARE(box.text, text("unreachable"));
        QCOMPARE(box.flags, 48);
        QCOMPARE(box.title, QStringLiteral("Torvane » Updater"));
        expectUsable();
    }
    void expectUsable() const {
        QVERIFY(panel().isVisible());
        QVERIFY(!isSeen(panel().load));
        QVERIFY(!panel().Inet1.StillExecuting());
        QCOMPARE(world().ends, 0);
        QCOMPARE(hiddenNames(), QStringList());
    }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The world in place of the user, the desktop and the emulator: answers that a test has prepared, and a
// record of what was asked. With a program folder of its own for the program under test.
#pragma once

#include "TestFolder.h"
#include "platform/forms/Runtime.h"

#include <functional>

namespace torvane {

struct FakeMessages : MessageBoxes {
    struct Box {
        QString text;
        int flags;
        QString title;
    };
    QList<Box> boxes;
    int answer = MsgBoxFlags::answerOk;

    int MsgBox(const QString& text, int flags, const QString& title) override {
        boxes.append({text, flags, title});
        return answer;
    }
    QString last() const { return boxes.isEmpty() ? QString() : boxes.last().text; }
};

struct FakeDialogs : FileDialogs {
    QList<FileQuestion> questions;
    QString answer;

    QString showOpen(const FileQuestion& question) override { return ask(question); }
    QString showSave(const FileQuestion& question) override { return ask(question); }
    QString showFolder(const FileQuestion& question) override { return ask(question); }

private:
    QString ask(const FileQuestion& question) {
        questions.append(question);
        return answer;
    }
};

struct FakeBrowser : Browser {
    QStringList urls;
    bool open(const QString& url) override {
        urls.append(url);
        return true;
    }
};

struct FakeProcesses : ProcessRunner {
    struct Start {
        QByteArray program;
        QByteArrayList arguments;
    };
    QList<Start> starts;
    std::function<void()> whileRunning = [] {};

    bool isProgram(const QByteArray& path) override { return path.endsWith("mgba.sh"); }
    void runAndWait(const QByteArray& program, const QByteArrayList& arguments) override {
        starts.append({program, arguments});
        whileRunning();
    }
};

/// All of it together, on a program folder with the real language files and an empty library.
struct FakeWorld {
    TestFolder folder;
    FakeMessages messages;
    FakeDialogs dialogs;
    FakeBrowser browser;
    FakeProcesses processes;
    Settings settings{folder.path(QStringLiteral("config"))};
    int ends = 0;
    Runtime runtime{messages, dialogs, browser, processes, settings, [this] { ++ends; }};

    FakeWorld() {
        folder.makeFolder(QStringLiteral("roms"));
        folder.makeFolder(QStringLiteral("data/lang"));
        folder.makeFolder(QStringLiteral("data/tray"));
        for (const char* code : {"esp", "cat", "eng"}) {
            const QString name = QStringLiteral("/data/lang/lang_%1.tvl").arg(QLatin1String(code));
            QFile::copy(QStringLiteral(TORVANE_TREE_DIR) + name, folder.path() + name);
        }
        folder.write(QStringLiteral("emuladores/emus.dat"), "mGBA#\\mgba.sh\r\n");
    }

    QString appPath() const { return folder.path(); }
    QString setting(const char* key) const {
        return settings.GetSetting(QStringLiteral("Torvane"), QStringLiteral("Config"),
                                   QString::fromLatin1(key), QStringLiteral("(absent)"));
    }
    void setSetting(const char* key, const QString& value) {
        settings.SaveSetting(QStringLiteral("Torvane"), QStringLiteral("Config"), QString::fromLatin1(key),
                             value);
    }
    void useLanguage(const char* code) {
        setSetting("Language",
                   appPath() + QStringLiteral("\\data\\lang\\lang_%1.tvl").arg(QLatin1String(code)));
    }
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Fakes for the user, the desktop, the emulator and the printer: they give prepared answers and record the
// questions.
#pragma once

#include "TestFolder.h"
#include "platform/base/RuntimeFailure.h"
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
    std::function<void()> whileOpen = [] {};

    int MsgBox(const QString& text, int flags, const QString& title) override {
        boxes.append({text, flags, title});
        whileOpen();
        return answer;
    }
    QString last() const { return boxes.isEmpty() ? QString() : boxes.last().text; }
};

struct FakeDialogs : FileDialogs {
    QList<FileQuestion> questions;
    QString answer;
    int failures = 0; ///< so many of the next questions fail

    QString showOpen(const FileQuestion& question) override { return ask(question); }
    QString showSave(const FileQuestion& question) override { return ask(question); }
    QString showFolder(const FileQuestion& question) override { return ask(question); }

private:
    QString ask(const FileQuestion& question) {
        questions.append(question);
        if (failures > 0 && failures-- > 0) throw RuntimeFailure(RuntimeFailure::deviceError);
        return answer;
    }
};

struct FakeBrowser : Browser {
    QStringList urls;
    bool found = true;

    bool open(const QString& url) override {
        urls.append(url);
        return found;
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

struct FakePrinter : Printer {
    QList<PrintedPage> pages;
    bool exists = true;
    bool fails = false;

    bool isThere() override { return exists; }
    void print(const PrintedPage& page) override {
        if (fails) throw RuntimeFailure(RuntimeFailure::printer);
        pages.append(page);
    }
};

/// All of them together, with settings in a temporary folder.
struct FakeDesktop {
    TestFolder folder;
    FakeMessages messages;
    FakeDialogs dialogs;
    FakeBrowser browser;
    FakeProcesses processes;
    FakePrinter printer;
    Settings settings{folder.path(QStringLiteral("config"))};
    int ends = 0;
    Runtime runtime = runtimeAsking(messages);

    /// The same desktop with other message boxes.
    Runtime runtimeAsking(MessageBoxes& boxes) {
        return {boxes, dialogs, browser, processes, printer, settings, [this] { ++ends; }};
    }
};

} // namespace torvane

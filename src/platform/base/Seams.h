// SPDX-License-Identifier: MIT
// The program's interfaces to the outside world: the user's answers, the browser, other programs. Modules use
// these interfaces; the forms runtime implements them, and tests answer instead.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace torvane {

/// The flags and answers of message boxes.
namespace MsgBoxFlags {
constexpr int okOnly = 0;
constexpr int yesNo = 4;
constexpr int critical = 16;
constexpr int question = 32;
constexpr int exclamation = 48;
constexpr int information = 64;
constexpr int answerOk = 1;
constexpr int answerYes = 6;
constexpr int answerNo = 7;
} // namespace MsgBoxFlags

/// Message boxes: block until the user has answered. All text is plain text.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// Shows the box with the buttons and the icon of the flags; returns one of the answers. An empty title
    /// means the application's name.
    virtual int MsgBox(const QString& text, int flags = MsgBoxFlags::okOnly, const QString& title = {}) = 0;
};

/// A question for a file name.
struct FileQuestion {
    QString title;
    QString filter;      ///< pairs "text|pattern;pattern", joined by "|"
    int filterIndex = 1; ///< the pair that is selected at first, counted from 1
    QString fileName;    ///< proposed bare name or spelled path
    /// Nothing will be written: showSave takes a file that is there without asking whether to replace it.
    bool isForFolder = false;
};

/// The open and save dialogs: block until the user has answered.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// The spelled path of an existing file; empty if the user cancelled.
    virtual QString showOpen(const FileQuestion& question) = 0;
    /// The spelled path to write to, existing (the user has agreed to replace it, unless it is asked for the
    /// folder) or not; empty if the user cancelled.
    virtual QString showSave(const FileQuestion& question) = 0;
    /// The spelled path of an existing folder; empty if the user cancelled. Only the question's title is
    /// used.
    virtual QString showFolder(const FileQuestion& question) = 0;
};

/// The desktop's handler for web addresses.
class Browser {
public:
    virtual ~Browser() = default;
    /// Passes the text on unchanged, never through a shell. False if nothing was found that opens it.
    virtual bool open(const QString& url) = 0;
};

/// Starts other programs.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;
    /// Whether the real path leads to a file that this user may execute.
    virtual bool isProgram(const QByteArray& path) = 0;
    /// Runs the program with the arguments, without a shell and with our environment, working folder and
    /// handles, and returns when it has ended. If it can't be started, returns at once without an error.
    virtual void runAndWait(const QByteArray& program, const QByteArrayList& arguments) = 0;
};

} // namespace torvane

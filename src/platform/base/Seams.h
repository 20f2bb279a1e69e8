// SPDX-License-Identifier: MIT
// What the program asks of the outside world: the user's answers, the browser, other programs. The
// modules speak to these interfaces; the forms runtime implements them, and tests answer in its place.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace torvane {

/// The flag words and answers of message boxes.
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
    /// Shows the box with the buttons and the icon of the flag word; returns one of the answers. An
    /// empty title stands for the application's own.
    virtual int MsgBox(const QString& text, int flags = MsgBoxFlags::okOnly, const QString& title = {}) = 0;
};

/// A question for a file name.
struct FileQuestion {
    QString title;
    QString filter;      ///< pairs "text|pattern;pattern", joined by "|"
    int filterIndex = 1; ///< the pair that is chosen at first, counted from 1
    QString fileName;    ///< proposed bare name or spelled path
};

/// The open and save dialogs: block until the user has answered.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// The spelled path of an existing file, or an empty text if the user gave none.
    virtual QString showOpen(const FileQuestion& question) = 0;
    /// The spelled path to write to, existing or not (the user has agreed to replace it), or empty.
    virtual QString showSave(const FileQuestion& question) = 0;
    /// The spelled path of an existing folder, or an empty text if the user gave none. Only the title of the
    /// question is heeded.
    virtual QString showFolder(const FileQuestion& question) = 0;
};

/// The desktop's opener of addresses.
class Browser {
public:
    virtual ~Browser() = default;
    /// Hands the text over as it stands. False if nothing could be found that opens it.
    virtual bool open(const QString& url) = 0;
};

/// The start of other programs.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;
    /// Whether the real path names a file that can be executed.
    virtual bool isProgram(const QByteArray& path) = 0;
    /// Starts the program with the arguments, without a shell, with our environment, folder and handles,
    /// and returns when it has ended. A failed start returns at once and tells nothing.
    virtual void runAndWait(const QByteArray& program, const QByteArrayList& arguments) = 0;
};

} // namespace torvane

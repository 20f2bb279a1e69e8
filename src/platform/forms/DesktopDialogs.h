// SPDX-License-Identifier: MIT
// The real message boxes, file dialogs and browser: the user and the desktop answer.
#pragma once

#include "../base/Seams.h"

namespace torvane {

class DesktopMessageBoxes : public MessageBoxes {
public:
    int MsgBox(const QString& text, int flags = MsgBoxFlags::okOnly, const QString& title = {}) override;
};

class DesktopFileDialogs : public FileDialogs {
public:
    QString showOpen(const FileQuestion& question) override;
    QString showSave(const FileQuestion& question) override;
    QString showFolder(const FileQuestion& question) override;

    /// The name filters of Qt for a filter of pairs "text|patterns": pairs without a pattern are
    /// left out.
    static QStringList nameFilters(const QString& filter);
};

class DesktopBrowser : public Browser {
public:
    bool open(const QString& url) override;
};

} // namespace torvane

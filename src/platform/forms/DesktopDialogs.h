// SPDX-License-Identifier: MIT
// The real message boxes, file dialogs and browser: the user and the desktop answer.
#pragma once

#include "../base/Seams.h"
#include "DesktopLanguage.h"

namespace torvane {

class DesktopMessageBoxes : public MessageBoxes {
public:
    /// With a language the buttons follow it; it must outlive this object.
    explicit DesktopMessageBoxes(DesktopLanguage* language = nullptr) : m_language(language) {}

    int MsgBox(const QString& text, int flags = MsgBoxFlags::okOnly, const QString& title = {}) override;

private:
    DesktopLanguage* m_language;
};

class DesktopFileDialogs : public FileDialogs {
public:
    /// As for message boxes.
    explicit DesktopFileDialogs(DesktopLanguage* language = nullptr) : m_language(language) {}

    QString showOpen(const FileQuestion& question) override;
    QString showSave(const FileQuestion& question) override;
    QString showFolder(const FileQuestion& question) override;

    /// The name filters of Qt for a filter of pairs "text|patterns": pairs without a pattern are
    /// left out.
    static QStringList nameFilters(const QString& filter);

private:
    DesktopLanguage* m_language;
};

/// Opens the addresses of web pages ("http", "https") and files, and no others. An address without a scheme
/// is taken as a web page or, if it is the path of a file, as that.
class DesktopBrowser : public Browser {
public:
    bool open(const QString& url) override;
};

} // namespace torvane

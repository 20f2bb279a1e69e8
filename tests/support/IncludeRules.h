// SPDX-License-Identifier: MIT
// The layers of the sources, and which of them may include which. Reads a tree of sources and reports every
// include that breaks a rule.
#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace torvane {

class IncludeRules {
public:
    /// `windows`: the names of all windows. A file belongs to a window if its name up to its first dot is
    /// that of the window.
    explicit IncludeRules(const QStringList& windows) : m_windows(windows.begin(), windows.end()) {}

    /// Reads all C++ sources below a folder. Gives the number of files read so far.
    int readFolder(const QString& folder);
    /// Adds one file: its path relative to the root of the sources, and its text.
    void add(const QString& path, const QString& text);

    /// One line per fault: "file:line: what is wrong", or "folder: what is wrong". Empty without faults.
    QStringList faults() const;

private:
    enum Layer { base, forms, controls, core, module, commands, window, app };
    struct Include {
        int line = 0;
        QString name; // as written in the file
        bool isBracketed = false;
        QString target; // the file in the tree; empty for files outside
    };

    QString windowOf(const QString& path) const;
    Layer layerOf(const QString& path) const;
    QString resolved(const QString& from, const QString& name) const;
    QList<Include> includesOf(const QString& path) const;
    QString faultOf(const QString& from, const Include& include) const;
    QString faultOfForeign(Layer from, const Include& include) const;
    static bool mayInclude(Layer from, Layer to);
    static bool isOfQtCore(const QString& header);
    void findCircles(const QString& path, QStringList& way, QSet<QString>& done, QStringList& found) const;
    QMap<QString, QSet<QString>> foldersIncluded() const;
    void findFolderCircles(QStringList& found) const;
    void findMixedFolders(QStringList& found) const;

    QSet<QString> m_windows;
    QMap<QString, QString> m_texts;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// A list of the files of one folder: path, pattern, current file. Often hidden, as the store that a
// window's actions work on. The folder is read again after each change of path and each refresh, at the
// first question about it, so that a handler that does both in a row reads it once.
#pragma once

#include "../base/FolderNames.h"
#include "Colours.h"
#include "RowList.h"

namespace torvane {

class FileList : public RowList {
    Q_OBJECT

public:
    struct Look {
        const char* pattern = "*.*";
        FontSpec font = Fonts::M8;
        OleColour fore = Colours::windowText;
        OleColour back = Colours::windowBack;
        bool visible = true;
    };
    FileList(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("file list"); }
    const Look& look() const { return m_look; }

    /// The folder, spelled without a separator at its end. A missing folder gives an empty list.
    const QString& Path() const { return m_path; }
    void setPath(const QString& path);
    /// The same for a folder that must be there and be readable: else fails with the number of the error, and
    /// the list keeps its folder.
    void openPath(const QString& path);
    QString Pattern() const { return QString::fromLatin1(m_look.pattern); }
    /// Reads the folder again; no file is the current one then.
    void Refresh();

    int ListCount() const { return table().count(); }
    /// The name of an entry; fails with an invalid property value outside of the list.
    QString List(int index) const;
    int ListIndex() const { return currentRow(); }
    /// Makes an entry the current one and fires Click; -1 means none and fires nothing. Fails with an
    /// invalid property value outside of the list.
    void setListIndex(int index);
    /// The same without Click, for code that walks through the list to fill another one.
    void selectQuietly(int index);
    /// The name of the current file; empty for none.
    QString FileName() const;
    /// The spelled path of the current file: folder, "\" and name.
    QString filePath() const { return m_path + QLatin1Char('\\') + FileName(); }
    /// Refreshes this list and another one; if both have the same path, the folder is read once for both.
    void readWith(FileList& other);
    /// The names of this moment, to be kept by who shows them.
    std::shared_ptr<const FolderNames> names() const;
    /// Takes names of its folder that were read elsewhere; no file is the current one then.
    void take(std::shared_ptr<const FolderNames> names);

signals:
    void Click();
    void DblClick();

private:
    const FolderNames& table() const { return *names(); }

    Look m_look;
    QString m_path;
    mutable std::shared_ptr<const FolderNames> m_names;
    std::shared_ptr<const RowSource> m_rows;
};

} // namespace torvane

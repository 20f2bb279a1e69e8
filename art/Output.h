// SPDX-License-Identifier: MIT
// Where the painter's pictures go: the files themselves, and the resource list that gives the program their
// names.
#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

namespace torvane {

/// The output folder. Every member throws std::runtime_error if a file can't be written.
class Output {
public:
    /// Makes `folder` and its subfolders if they are missing.
    explicit Output(const QString& folder);

    /// Saves a picture into pictures/ in the format of its extension (png, jpg, bmp) and adds it to the
    /// resource list.
    void picture(const QString& fileName, const QImage& image);

    /// Saves a PNG under any relative name, for instance a tray picture or a frame, without listing it.
    void png(const QString& relativePath, const QImage& image) const;

    /// Writes a text file under a relative name.
    void text(const QString& relativePath, const QString& content) const;

    /// Writes torvane_art.qrc with all pictures saved so far under the prefix /art.
    void resourceList() const;

private:
    QDir root;
    QStringList pictures;
};

/// "name@2x.png" for "name.png" at scale 2, the name itself at scale 1; a leading path is kept.
QString scaledName(const QString& fileName, int scale);

} // namespace torvane

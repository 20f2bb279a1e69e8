// SPDX-License-Identifier: MIT
// Where the painter's pictures go: the files themselves and the resource list that names them for the
// program.
#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

namespace torvane {

/// The folder that is being filled. Every member throws std::runtime_error when a file cannot be written.
class Output {
public:
    /// Makes `folder` and its subfolders if they are missing.
    explicit Output(const QString& folder);

    /// Saves a picture into pictures/ in the kind that its ending names (png, jpg, bmp) and puts it on the
    /// list.
    void picture(const QString& fileName, const QImage& image);

    /// Saves a PNG under any relative name, for instance a tray picture or a frame; not on the list.
    void png(const QString& relativePath, const QImage& image) const;

    /// Writes a text file under a relative name.
    void text(const QString& relativePath, const QString& content) const;

    /// Writes torvane_art.qrc with all pictures saved so far under the prefix /art.
    void resourceList() const;

private:
    QDir root;
    QStringList pictures;
};

/// "name@2x.png" for "name.png" at scale 2, the name itself at scale 1; folders in front of it stay.
QString scaledName(const QString& fileName, int scale);

} // namespace torvane

// SPDX-License-Identifier: MIT
// Writes pictures and the resource list. A failure stops the build with the file's name.
#include "Output.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include <stdexcept>

namespace torvane {

namespace {

// A background is visible for hours and has fine lines: quality 95 preserves them. On a dense screen their
// pixels are half as large, so that 92 looks the same there, in four fifths of the bytes.
int jpegQuality(const QString& path) { return path.contains("@2x") ? 92 : 95; }

void save(const QString& path, const QByteArray& format, const QImage& image) {
    QImageWriter writer(path, format);
    if (format == "jpg") writer.setQuality(jpegQuality(path));
    if (format == "jpg") writer.setOptimizedWrite(true);
    if (!writer.write(image)) {
        throw std::runtime_error(path.toStdString() + ": " + writer.errorString().toStdString());
    }
}

} // namespace

Output::Output(const QString& folder) : root(folder) {
    for (const char* sub : {"pictures", "frames", "theme", "tree/data/tray", "tree/data/site"}) {
        if (!root.mkpath(sub)) throw std::runtime_error("cannot make " + root.filePath(sub).toStdString());
    }
}

void Output::picture(const QString& fileName, const QImage& image) {
    save(root.filePath("pictures/" + fileName), QFileInfo(fileName).suffix().toLatin1(), image);
    pictures << fileName;
}

void Output::png(const QString& relativePath, const QImage& image) const {
    save(root.filePath(relativePath), "png", image);
}

void Output::text(const QString& relativePath, const QString& content) const {
    QFile file(root.filePath(relativePath));
    const QByteArray bytes = content.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw std::runtime_error(file.fileName().toStdString() + ": " + file.errorString().toStdString());
    }
}

void Output::resourceList() const {
    QString list = "<RCC>\n<qresource prefix=\"/art\">\n";
    for (const QString& name : pictures) {
        list += QString("<file alias=\"%1\">pictures/%1</file>\n").arg(name);
    }
    text("torvane_art.qrc", list + "</qresource>\n</RCC>\n");
}

QString scaledName(const QString& fileName, int scale) {
    if (scale == 1) return fileName;
    return QString(fileName).insert(fileName.lastIndexOf('.'), QString("@%1x").arg(scale));
}

} // namespace torvane

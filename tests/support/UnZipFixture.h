// SPDX-License-Identifier: MIT
// Shared by the tests of unpacking: a target folder with other files around it, and archives built from names
// and contents.
#pragma once

#include "FileFixture.h"
#include "FolderTree.h"
#include "platform/base/UnZip.h"

#include <zip.h>

namespace torvane {

/// An entry of an archive to be written.
struct ArchiveEntry {
    QByteArray name;
    QByteArray bytes;
    int method = ZIP_CM_DEFLATE;
};

class UnZipFixture : public FileFixture {
protected:
    /// Creates the target folder, and files around it that must stay unchanged.
    void renewTarget() {
        renewFolder();
        folder->makeFolder(QStringLiteral("target"));
        write("out.gb", "untouched");
        write("other/in.gb", "untouched");
    }
    QString target() const { return at("target") + QLatin1Char('\\'); }
    FolderTree wholeTree() const { return treeOf(folder->path().toStdString()); }
    FolderTree targetTree() const { return treeOf(at("target").toStdString()); }
    static FolderTree files(const QList<std::pair<QByteArray, QByteArray>>& namesAndBytes) {
        FolderTree tree;
        for (const auto& [name, bytes] : namesAndBytes) tree[name] = fileWith(bytes);
        return tree;
    }

    /// What counts as a game in the archives of the tests.
    static bool isGame(QByteArrayView name) { return name.toByteArray().toLower().contains(".gb"); }
    UnZip unzip(const QString& archive, const UnZip::Limits& limits = {}) const {
        UnZip control(limits);
        control.setFolder(target());
        control.setArchive(archive);
        control.isWanted = isGame;
        return control;
    }
    UnZip::Reason extract(const QString& archive, const UnZip::Limits& limits = {}) const {
        return unzip(archive, limits).extract(QStringLiteral("*.*"));
    }

    /// Writes an archive into the folder of the test; gives its path.
    QString makeArchive(const char* name, const QList<ArchiveEntry>& entries) const {
        QString path = at(name);
        zip_t* const zip = zip_open(path.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        if (zip == nullptr) qFatal("can't make the archive");
        for (const ArchiveEntry& entry : entries) {
            zip_source_t* const source = zip_source_buffer(zip, entry.bytes.constData(),
                                                           static_cast<zip_uint64_t>(entry.bytes.size()), 0);
            const zip_int64_t index = zip_file_add(zip, entry.name.constData(), source, ZIP_FL_ENC_UTF_8);
            if (index < 0) qFatal("can't add to the archive");
            zip_set_file_compression(zip, static_cast<zip_uint64_t>(index), entry.method, 1);
        }
        if (zip_close(zip) != 0) qFatal("can't write the archive");
        return path;
    }
};

} // namespace torvane

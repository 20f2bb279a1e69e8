// SPDX-License-Identifier: MIT
// Everything below a folder, in a form that can be compared and read: kinds, permissions and contents.
#pragma once

#include <QByteArray>
#include <QMap>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace torvane {

/// The relative paths below a folder. Each value describes the entry: its kind and permissions, and the bytes
/// of a file or the target of a link.
using FolderTree = QMap<QByteArray, QByteArray>;

inline QByteArray bytesOfFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return QByteArray::fromStdString(
        {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
}

inline QByteArray fileWith(const QByteArray& bytes, uint mode = 0644) {
    return "file " + QByteArray::number(mode, 8) + ": " + bytes;
}

inline FolderTree treeOf(const std::filesystem::path& folder) {
    FolderTree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        struct stat info {};
        lstat(entry.path().c_str(), &info);
        const uint mode = info.st_mode & 07777;
        QByteArray& text = tree[QByteArray::fromStdString(entry.path().lexically_relative(folder).string())];
        if (S_ISREG(info.st_mode)) {
            text = fileWith(bytesOfFile(entry.path()), mode);
        } else if (S_ISLNK(info.st_mode)) {
            text =
                "link to " + QByteArray::fromStdString(std::filesystem::read_symlink(entry.path()).string());
        } else {
            text = (S_ISDIR(info.st_mode) ? "folder " : "other ") + QByteArray::number(mode, 8);
        }
    }
    return tree;
}

} // namespace torvane

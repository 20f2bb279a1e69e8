// SPDX-License-Identifier: MIT
// Listing the files of trees.
#include "SourceTree.h"
#include "ContentSum.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"

#include <filesystem>

namespace torvane {

namespace {
namespace fs = std::filesystem;

void add(SourceTree& tree, const QByteArray& path, const QByteArray& real) {
    const File file(Paths::spelled(real));
    const struct stat info = infoOf(file.handle());
    tree.files[path] = {real, ContentSum::of(file.handle()), info.st_size, info.st_mode & 07777};
}

void gather(SourceTree& tree, const QByteArray& folder, std::vector<RuntimeFailure>& failures) {
    const auto attempt = [&](const QByteArray& path, const auto& action) {
        try {
            aboutFile(Paths::spelled(path), action);
        } catch (const RuntimeFailure& failure) {
            failures.push_back(failure);
        }
    };
    std::error_code error;
    fs::recursive_directory_iterator files(folder.toStdString(),
                                           fs::directory_options::follow_directory_symlink, error);
    while (!error && files != fs::recursive_directory_iterator()) {
        const QByteArray real = QByteArray::fromStdString(files->path().string());
        const QByteArray path = real.sliced(folder.size() + 1);
        std::error_code unknown;
        if (files->is_regular_file(unknown) && path != TreeRecord::file) {
            attempt(real, [&] { add(tree, path, real); });
        }
        files.increment(error);
    }
    attempt(folder, [&] {
        if (error) throw RuntimeFailure::fromErrno(error.value());
    });
}
} // namespace

SourceTree SourceTree::recorded(const QByteArray& folder) {
    const TreeRecord record = TreeRecord::of(folder);
    SourceTree tree{record.version, {}};
    for (const auto& [path, file] : record.files) {
        tree.files[path] = {folder + '/' + path, file.sum, file.size, file.mode};
    }
    return tree;
}

SourceTree SourceTree::gathered(const QByteArrayList& folders, const QByteArray& version,
                                std::vector<RuntimeFailure>& failures) {
    SourceTree tree{version, {}};
    for (const QByteArray& folder : folders) gather(tree, folder, failures);
    return tree;
}

} // namespace torvane

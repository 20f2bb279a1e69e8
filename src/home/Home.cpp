// SPDX-License-Identifier: MIT
// Choosing and opening the home.
#include "Home.h"
#include "LayOut.h"
#include "platform/base/File.h"
#include "platform/base/FolderNames.h"
#include "platform/base/Leftovers.h"
#include "platform/base/Paths.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>

namespace torvane {

namespace {
namespace fs = std::filesystem;

bool isFolderAt(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool isTemplate(const QByteArray& folder) {
    struct stat info {};
    return stat((folder + '/' + TreeRecord::file).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

QByteArray whole(const QByteArray& given, const QByteArray& from) {
    return given.startsWith('/') ? given : from + '/' + given;
}

QByteArray normal(const fs::path& path) {
    QByteArray normal = QByteArray::fromStdString(path.lexically_normal().string());
    while (normal.size() > 1 && normal.endsWith('/')) normal.chop(1);
    return normal;
}

QByteArray absolute(const QByteArray& given, const QByteArray& from) {
    return normal(whole(given, from).toStdString());
}

QByteArray workingFolder() {
    const std::unique_ptr<char, void (*)(void*)> folder(getcwd(nullptr, 0), std::free);
    return folder ? QByteArray(folder.get()) : QByteArray("/");
}

// After a link, ".." is the folder above the link's target, as for the system.
QByteArray givenFolder(const QByteArray& given) {
    const fs::path path = whole(given, workingFolder()).toStdString();
    const bool leadsUp = std::find(path.begin(), path.end(), "..") != path.end();
    std::error_code unknown;
    const fs::path followed = leadsUp ? fs::weakly_canonical(path, unknown) : path;
    return normal(unknown ? path : followed);
}

QByteArray folderIn(const QByteArray& userData) {
    return userData.isEmpty() ? userData : (userData == "/" ? userData : userData + '/') + "torvane";
}

QByteArray templateFor(const HomeQuestion& question) {
    const QByteArray installed = absolute(question.installedTemplate, question.applicationFolder);
    if (isTemplate(installed)) return installed;
    return isTemplate(question.applicationFolder) ? question.applicationFolder : QByteArray();
}

constexpr int toMakeNames = W_OK | X_OK;

// Fails unless names can be made in a folder and in its folder `data`.
void requireWritable(const QByteArray& folder) {
    for (const QByteArray& one : {folder, folder + "/data"}) {
        aboutFile(Paths::spelled(one), [&] {
            if (access(one.constData(), toMakeNames) != 0) failWithErrno();
        });
    }
}

// Whether the program could change anything in a template.
bool isOpenToChanges(const QByteArray& folder) {
    const auto isWritable = [&](const char* name) {
        return access((folder + name).constData(), toMakeNames) == 0;
    };
    return isWritable("") || isWritable("/data") || isWritable("/roms");
}

// Whether there is enough in a folder to work with: all of it was laid out once, or a language at least.
bool isLaidOut(const QByteArray& folder) {
    const QString languages = Paths::spelled(folder) + QStringLiteral("\\data\\lang");
    return !folder.isEmpty() &&
           (isTemplate(folder) || FolderNames::read(languages, QStringLiteral("*.tvl"))->count() > 0);
}

std::optional<RuntimeFailure> failureToWrite(const QByteArray& folder) {
    try {
        requireWritable(folder);
    } catch (const RuntimeFailure& failure) {
        return failure;
    }
    return std::nullopt;
}

void makeOwn(const QByteArray& folder) {
    aboutFile(Paths::spelled(folder), [&] { Folder::make(folder, Folder::ownMode); });
}

std::optional<RuntimeFailure> failureToLayOut(const Home& home) {
    try {
        if (home.folder.isEmpty()) throw RuntimeFailure::ofNoHome();
        if (home.kind == Home::Kind::user) makeOwn(home.folder);
        const SourceTree tree =
            home.templateFolder.isEmpty() ? SourceTree() : SourceTree::recorded(home.templateFolder);
        const LayOut::Report report = LayOut(home.folder, tree).run();
        if (!report.failures.empty()) return report.failures.front();
    } catch (const RuntimeFailure& failure) {
        return failure;
    }
    return std::nullopt;
}
} // namespace

Home chooseHome(const HomeQuestion& question) {
    const QByteArray& own = question.applicationFolder;
    if (!question.given.isEmpty()) {
        return {Home::Kind::given, givenFolder(question.given), templateFor(question)};
    }
    const QByteArray installed = absolute(question.installedTemplate, own);
    const bool hasData = isFolderAt(own + "/data");
    if (hasData && access((own + "/data").constData(), W_OK | X_OK) == 0) {
        return {Home::Kind::portable, own, {}};
    }
    if (isTemplate(installed)) return {Home::Kind::user, folderIn(question.userData), installed};
    return {hasData ? Home::Kind::readOnly : Home::Kind::portable, own, {}};
}

OpenedHome openHome(const Home& home) {
    OpenedHome opened{Paths::spelled(home.folder), false, {}};
    if (home.kind == Home::Kind::portable) return opened;
    if (home.kind != Home::Kind::readOnly) opened.problem = failureToLayOut(home);
    if (auto failure = failureToWrite(home.folder)) {
        opened.isForLooking = true;
        // What has stopped the lay-out says more than that the folder is not there.
        if (!opened.problem) opened.problem.emplace(*failure);
    }
    if (opened.problem && !home.templateFolder.isEmpty() && !isLaidOut(home.folder)) {
        opened.isForLooking = true;
        opened.isClosed = isOpenToChanges(home.templateFolder);
        opened.folder = Paths::spelled(home.templateFolder);
    }
    return opened;
}

void sweepHome(const QString& folder) {
    ignoring([&] {
        std::set<QString> folders;
        for (const auto& [path, file] : TreeRecord::of(Paths::real(folder)).files) {
            folders.insert(folder + QLatin1Char('\\') +
                           Paths::spelled(path.first(path.lastIndexOf('/') + 1)));
        }
        for (const QString& one : folders) Leftovers::sweep(one);
    });
}

} // namespace torvane

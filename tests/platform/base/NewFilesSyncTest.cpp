// SPDX-License-Identifier: MIT
// When new files are synced, and what is reported if that fails. An executable's own functions take
// precedence over those of the library.
#include "platform/base/NewFiles.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <functional>
#include <set>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace {
int (*refusesSync)(const struct stat&) = nullptr; // errno of the failure, or 0
int errorOfDisks = 0;
std::set<ino_t> syncedFolders;
int syncedFiles = 0;
int syncedDisks = 0;
std::function<void()> beforeFileSync;

int failingWith(int error) {
    errno = error;
    return -1;
}
} // namespace

// NOLINTBEGIN: the signatures are those of the C library.
extern "C" int fsync(int file) {
    struct stat info {};
    fstat(file, &info);
    if (const int error = refusesSync != nullptr ? refusesSync(info) : 0; error != 0)
        return failingWith(error);
    if (S_ISDIR(info.st_mode)) syncedFolders.insert(info.st_ino);
    if (S_ISREG(info.st_mode)) {
        ++syncedFiles;
        if (beforeFileSync) beforeFileSync();
    }
    return static_cast<int>(syscall(SYS_fsync, file));
}
extern "C" int syncfs(int) noexcept {
    ++syncedDisks;
    return errorOfDisks == 0 ? 0 : failingWith(errorOfDisks);
}
// NOLINTEND

namespace torvane {

class NewFilesSyncTest : public FileFixture {
    Q_OBJECT

    static constexpr int many = static_cast<int>(Arrival::fewFiles) + 1;

    QByteArray real(const QByteArray& name) const { return folder->native(name); }
    void addFiles(NewFiles& files, int count) const {
        for (int i = 0; i < count; ++i) files.add(real('f' + QByteArray::number(i)), "one", 0644);
        syncedFiles = 0;
        syncedDisks = 0;
        syncedFolders.clear();
    }
    ino_t numberOf(const QByteArray& name) const {
        struct stat info {};
        stat(real(name).constData(), &info);
        return info.st_ino;
    }

private slots:
    void init() { renewFolder(); }
    void cleanup() {
        refusesSync = nullptr;
        beforeFileSync = {};
        errorOfDisks = 0;
    }

    void each_of_a_few_files_is_synced_before_it_gets_its_name() {
        NewFiles files;
        addFiles(files, 2);
        bool hadName = false;
        beforeFileSync = [&] { hadName = hadName || QFile::exists(at("f0")); };
        files.finish();
        QCOMPARE(syncedFiles, 2);
        QCOMPARE(syncedDisks, 0);
        QVERIFY(!hadName && QFile::exists(at("f0")));
    }
    void many_files_share_one_sync() {
        NewFiles files;
        addFiles(files, many);
        files.finish();
        QCOMPARE(syncedFiles, 0);
        QCOMPARE(syncedDisks, 1);
    }
    void if_that_fails_each_is_synced_by_itself() {
        NewFiles files;
        addFiles(files, many);
        errorOfDisks = EIO;
        files.finish();
        QCOMPARE(syncedFiles, many);
    }
    void files_of_two_disks_are_synced_one_by_one() {
        struct stat here {};
        struct stat there {};
        if (stat(real(".").constData(), &here) != 0 || stat("/dev/shm", &there) != 0 ||
            here.st_dev == there.st_dev || access("/dev/shm", W_OK) != 0) {
            QSKIP("there is no second disk here");
        }
        const TestFolder other(QStringLiteral("/dev/shm"));
        NewFiles files;
        files.add(other.native("a"), "one", 0644);
        addFiles(files, many);
        files.finish();
        QCOMPARE(syncedDisks, 0);
        QCOMPARE(syncedFiles, many + 1);
    }
    void every_folder_is_synced_once_the_files_have_their_names() {
        NewFiles files;
        for (const char* name : {"x/a", "y/b", "x/c"}) files.add(real(name), "one", 0644);
        syncedFolders.clear();
        files.finish();
        QCOMPARE(syncedFolders, (std::set<ino_t>{numberOf("x"), numberOf("y")}));
    }
    void a_file_that_cannot_be_synced_is_reported_and_gets_no_name() {
        NewFiles files;
        addFiles(files, 2);
        refusesSync = [](const struct stat& info) { return S_ISREG(info.st_mode) ? EIO : 0; };
        for (const NewFiles::Result& result : files.finish()) {
            QVERIFY(!result.isPlaced && result.failure);
            QCOMPARE(result.failure->number(), RuntimeFailure::deviceError);
            QVERIFY(!QFile::exists(QString::fromUtf8(result.path)));
        }
        expectNames({});
    }
    void files_whose_folder_cannot_be_synced_are_not_placed_for_certain() {
        NewFiles files;
        addFiles(files, 2);
        refusesSync = [](const struct stat& info) { return S_ISDIR(info.st_mode) ? EIO : 0; };
        for (const NewFiles::Result& result : files.finish()) {
            QVERIFY(!result.isPlaced && result.failure);
            QCOMPARE(result.failure->number(), RuntimeFailure::deviceError);
        }
    }
    void a_full_batch_does_not_wait_for_the_end() {
        constexpr int batch = Arrival::largestBatch;
        NewFiles files;
        addFiles(files, batch - 1);
        QVERIFY(!QFile::exists(at("f0")));
        files.add(real("last"), "one", 0644);
        QVERIFY(QFile::exists(at("f0")) && QFile::exists(at("last")));
        QCOMPARE(files.finish().size(), static_cast<size_t>(batch));
    }
};

} // namespace torvane

using torvane::NewFilesSyncTest;
TORVANE_APPLESS_TEST(NewFilesSyncTest)
#include "NewFilesSyncTest.moc"

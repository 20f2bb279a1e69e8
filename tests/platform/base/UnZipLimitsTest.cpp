// SPDX-License-Identifier: MIT
// ZIP bombs: anything larger than a game can be is left out, whatever the archive claims.
#include "platform/base/ArchiveBytes.h"
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

#include <QtEndian>

#include <sys/statvfs.h>

using namespace torvane;

class UnZipLimitsTest : public UnZipFixture {
    Q_OBJECT

    // Changes the size that the directory claims for the first entry.
    void claimSize(const QString& archive, quint32 size) const {
        QByteArray bytes = folder->read(archive);
        const qsizetype entry = bytes.indexOf("PK\1\2");
        qToLittleEndian(size, bytes.data() + entry + 24);
        folder->write(archive, bytes);
    }
    static QByteArray zeros(qsizetype count) { return QByteArray(count, '\0'); }

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    void an_entry_of_exactly_the_limit_comes_out_and_one_byte_more_does_not() {
        const UnZip::Limits limits{.bytesPerEntry = 1000};
        extract(makeArchive("a.zip", {{"over.gb", zeros(1001)}, {"just.gb", zeros(1000)}}), limits);
        QCOMPARE(targetTree(), files({{"just.gb", zeros(1000)}}));
    }
    void an_entry_that_lies_about_its_size_is_read_to_the_limit_and_no_further() {
        const UnZip::Limits limits{.bytesPerEntry = 1 << 20, .bytesInAll = 2 << 20};
        const QString archive = makeArchive("a.zip", {{"bomb.gb", zeros(32 << 20)}, {"game.gb", "game"}});
        claimSize(QStringLiteral("a.zip"), 100);
        extract(archive, limits);
        QCOMPARE(targetTree(), files({{"game.gb", "game"}}));
    }
    void an_entry_that_claims_too_large_a_size_costs_the_others_nothing() {
        const UnZip::Limits limits{.bytesPerEntry = 1000, .bytesInAll = 1000};
        extract(makeArchive("a.zip", {{"over.gb", zeros(1001)}, {"game.gb", zeros(1000)}}), limits);
        QCOMPARE(targetTree(), files({{"game.gb", zeros(1000)}}));
    }
    void beyond_the_total_limit_the_work_ends() {
        const UnZip::Limits limits{.bytesInAll = 1000};
        extract(makeArchive("a.zip", {{"a", zeros(600)}, {"b", zeros(400)}, {"c", zeros(1)}, {"d", ""}}),
                limits);
        QCOMPARE(targetTree(), files({{"a", zeros(600)}, {"b", zeros(400)}}));
    }
    void damaged_entries_count_towards_the_limit() {
        const QString archive = makeArchive("a.zip", {{"a", zeros(900), ZIP_CM_STORE}, {"b", zeros(200)}});
        claimSize(QStringLiteral("a.zip"), 901);
        extract(archive, {.bytesInAll = 1000});
        QCOMPARE(targetTree(), FolderTree());
        extract(archive, {.bytesInAll = 1100});
        QCOMPARE(targetTree(), files({{"b", zeros(200)}}));
    }
    void an_archive_with_exactly_the_limit_of_entries_comes_out_and_one_with_more_does_not() {
        const QString archive = makeArchive("a.zip", {{"a", "1"}, {"b", "2"}, {"sub/c", "3"}});
        extract(archive, {.entries = 2});
        QCOMPARE(targetTree(), FolderTree());
        extract(archive, {.entries = 3});
        QCOMPARE(targetTree(), files({{"a", "1"}, {"b", "2"}}));
    }
    void a_directory_that_would_exhaust_memory_is_not_read() {
        Pulse pulse({});
        const qint64 room = 1 << 20; // for the search, besides the entries
        ArchiveBytes bytes(write("a.zip", zeros(3 << 20)), 100, pulse);
        const std::unique_ptr<zip_source_t, void (*)(zip_source_t*)> source(bytes.source(), zip_source_free);
        QCOMPARE(zip_source_open(source.get()), 0);
        QByteArray read(3 << 20, 'x');
        const auto all = static_cast<zip_uint64_t>(read.size());
        QCOMPARE(zip_source_read(source.get(), read.data(), all), room + qint64{512} * 100);
        QCOMPARE(zip_source_seek(source.get(), 0, SEEK_SET), 0);
        QCOMPARE(zip_source_read(source.get(), read.data(), all), -1);
        zip_source_close(source.get());
    }
    void reading_an_open_archive_has_no_such_limit() {
        const QByteArray game(3 << 20, 'g');
        extract(makeArchive("a.zip", {{"a.gb", game, ZIP_CM_STORE}}), {.entries = 1});
        QCOMPARE(targetTree(), files({{"a.gb", game}}));
    }
    void an_archive_that_claims_too_many_entries_is_not_even_opened() {
        const auto opening = [](const char* name, qint64 mostEntries) {
            Pulse pulse({});
            const QString path = QStringLiteral(TORVANE_TESTS_DIR "/archives/") + QLatin1String(name);
            return failureOf([&] { const ArchiveBytes bytes(path, mostEntries, pulse); });
        };
        QCOMPARE(opening("zip64-many.zip", 999'999), number(RuntimeFailure::outOfMemory));
        QCOMPARE(opening("zip64-many.zip", 1'000'000), nothing);
        QCOMPARE(opening("zip64-count.zip", 100'000), number(RuntimeFailure::outOfMemory));
        QCOMPARE(opening("zip64.zip", 2), nothing);
        QCOMPARE(opening("zip64.zip", 1), number(RuntimeFailure::outOfMemory));
        QCOMPARE(opening("zip64-place.zip", 1), nothing); // libzip will notice
        QCOMPARE(opening("sound.zip", 1), nothing);
    }
    void invalid_utf8_names_among_thousands_lose_only_their_own_entries() {
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 3000; ++i) {
            entries.append(ArchiveEntry{"\xC3\xA9/" + QByteArray::number(i) + ".gb", "", ZIP_CM_STORE});
        }
        for (const char* name : {"\xC3\xB1 first.gb", "\xC3\xB1 last.gb"}) {
            entries.insert(entries.size() - 1, ArchiveEntry{name, "gone"});
        }
        entries.append(ArchiveEntry{"game.gb", "game"});
        makeArchive("a.zip", entries);
        QByteArray bytes = read("a.zip");
        bytes.replace("\xC3\xB1", "\xC3 ");
        extract(write("a.zip", bytes), {.entries = 3003});
        QCOMPARE(targetTree(), files({{"game.gb", "game"}}));
    }
    void a_directory_is_read_as_far_as_entries_and_pulse_allow() {
        makeArchive("a.zip", {{"game.gb", "game"}, {"\xC3\xB1.gb", "gone"}});
        QByteArray bytes = read("a.zip");
        bytes.replace("\xC3\xB1", "\xC3 ");
        const File archive(write("a.zip", bytes));
        Pulse pulse({});
        QCOMPARE(directoryPatches(archive, 1, pulse).size(), size_t(0));
        QCOMPARE(directoryPatches(archive, 2, pulse).size(), size_t(2));
        Pulse ended([] { return false; });
        while (ended.shouldContinue()) {
        }
        QCOMPARE(directoryPatches(archive, 2, ended).size(), size_t(0));
    }
    void the_largest_directory_of_ordinary_names_is_read() {
        QList<ArchiveEntry> entries;
        for (int i = 0; i < 3000; ++i) {
            entries.append(
                ArchiveEntry{"sub/" + QByteArray::number(i).rightJustified(251, 'g'), "", ZIP_CM_STORE});
        }
        entries.append(ArchiveEntry{"game.gb", "game"});
        extract(makeArchive("a.zip", entries), {.entries = 3001});
        QCOMPARE(targetTree(), files({{"game.gb", "game"}}));
    }
    void the_default_limit_of_an_entry_is_64_mib() {
        extract(makeArchive("a.zip", {{"over.gb", zeros((64 << 20) + 1)}, {"just.gb", zeros(64 << 20)}}));
        QCOMPARE(targetTree().keys(), QList<QByteArray>{"just.gb"});
        QCOMPARE(infoOf("target/just.gb").st_size, 64 << 20);
    }
    void some_space_on_the_disk_stays_free() {
        struct statvfs disk {};
        QCOMPARE(statvfs(folder->native("target").constData(), &disk), 0);
        const auto free = static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
        const QString archive = makeArchive("a.zip", {{"game.gb", "game"}});
        extract(archive, {.bytesLeftFree = free + (qint64{1} << 40)});
        QCOMPARE(targetTree(), FolderTree());
        extract(archive, {.bytesLeftFree = free / 2});
        QCOMPARE(targetTree(), files({{"game.gb", "game"}}));
    }
};

TORVANE_APPLESS_TEST(UnZipLimitsTest)
#include "UnZipLimitsTest.moc"

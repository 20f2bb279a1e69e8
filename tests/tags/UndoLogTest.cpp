// SPDX-License-Identifier: MIT
// Logs of a last run that are damaged, or are none.
#include "tags/undo/UndoLog.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QDataStream>

using namespace torvane;

class UndoLogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QByteArray path() const { return folder->native("log"); }
    /// A log of these bytes after its first line.
    UndoLog log(const QByteArray& bytes) const {
        folder->writeNative("log", UndoBlock::firstLine + bytes);
        return UndoLog(path());
    }
    /// The games in it, the latest first.
    QByteArrayList games(const QByteArray& bytes) const {
        QByteArrayList paths;
        const UndoLog all = log(bytes);
        all.visitBackwards([&](const UndoLog::Place&, const UndoEntry& entry) {
            paths += entry.path;
            return true;
        });
        return all.count() == paths.size() ? paths : QByteArrayList{"wrong count"};
    }
    static QByteArray block(const QByteArray& game, qint64 start = 4096) {
        return UndoBlock::packed({{game, start, "old", "new"}});
    }
    /// What claims to be a block with these entries; its hash is right.
    static QByteArray block(const QByteArray& entries, const QByteArray& size) {
        return UndoBlock::mark + size + QCryptographicHash::hash(entries, QCryptographicHash::Sha256) +
               entries;
    }
    static QByteArray size(qint64 value) {
        QByteArray bytes;
        QDataStream(&bytes, QIODevice::WriteOnly) << value;
        return bytes;
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void blocks_are_found_after_damage_of_any_length() {
        const qsizetype piece = 1 << 20; // the search reads as much at once
        for (qsizetype length = piece - 20; length < piece + 3; ++length)
            QCOMPARE(games(QByteArray(length, '\n') + block("/a")), QByteArrayList{"/a"});
    }
    void a_size_that_no_block_has_takes_no_memory() {
        for (const qint64 bad : {qint64{-1}, (qint64{64} << 20) + 1, qint64{1} << 50,
                                 std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
            QCOMPARE(games(block("/a") + block(QByteArray(), size(bad)) + block("/b")),
                     (QByteArrayList{"/b", "/a"}));
    }
    void a_block_with_other_entries_is_left_out() {
        const qsizetype head = UndoBlock::mark.size() + UndoBlock::sizeSize + UndoBlock::hashSize;
        const QByteArray entries = block("/x").sliced(head);
        for (qsizetype cut = 1; cut < entries.size(); ++cut)
            QCOMPARE(games(block(entries.chopped(cut), size(entries.size() - cut)) + block("/a")),
                     QByteArrayList{"/a"});
        QCOMPARE(games(block("/x", -1) + block("/a")), QByteArrayList{"/a"});
    }
    void what_is_no_ordinary_file_is_refused() {
        log(block("/a"));
        QCOMPARE(symlink("log", folder->native("link").constData()), 0);
        QVERIFY(failureOf([&] { UndoLog(folder->native("link")); }));
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0600), 0);
        QVERIFY(failureOf([&] { UndoLog(folder->native("pipe")); })); // and does not wait for a writer
        QVERIFY(failureOf([&] { UndoLog(folder->native("")); }));
    }
};

TORVANE_APPLESS_TEST(UndoLogTest)
#include "UndoLogTest.moc"

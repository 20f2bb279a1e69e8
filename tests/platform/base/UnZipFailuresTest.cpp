// SPDX-License-Identifier: MIT
// Archives that can't be read and folders that can't be written: no partial file, no hang, no message.
#include "support/TestMain.h"
#include "support/UnZipFixture.h"

using namespace torvane;

class UnZipFailuresTest : public UnZipFixture {
    Q_OBJECT

    const QByteArray large = QByteArray(24 << 20, 'a');

    // Unpacks while another program does something to the archive, well after the start.
    void extractWhile(const QString& archive, const std::function<void()>& happens) const {
        UnZip control = unzip(archive);
        bool isFirst = true;
        control.goesOn = [&] {
            if (std::exchange(isFirst, false)) happens();
            return true;
        };
        control.extract(QStringLiteral("*.*"));
        QVERIFY(!isFirst);
    }
    // Two entries, of which the first takes some time and many reads.
    QString slowArchive() const {
        return makeArchive("a.zip", {{"a.gb", large, ZIP_CM_STORE}, {"b.gb", "the second", ZIP_CM_STORE}});
    }

    FolderTree treeWithoutArchive() const {
        FolderTree tree = wholeTree();
        tree.remove("a.zip");
        return tree;
    }

private slots:
    void initTestCase() { umask(022); }
    void init() { renewTarget(); }

    void an_archive_that_is_cut_anywhere_yields_nothing() {
        makeArchive("a.zip", {{"a.gb", "a game of a few bytes"}, {"b.gb", "another", ZIP_CM_STORE}});
        const QByteArray bytes = read("a.zip");
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            extract(write("a.zip", bytes.first(length)));
            QVERIFY2(targetTree().isEmpty(), qPrintable(QString::number(length)));
        }
        extract(write("a.zip", bytes));
        QCOMPARE(targetTree().size(), 2);
    }
    void with_any_byte_changed_only_whole_files_come_out() {
        const QByteArray game("a game of a few bytes, and of a few more bytes");
        makeArchive("a.zip", {{"a.gb", game}, {"b.gb", "another", ZIP_CM_STORE}});
        const QByteArray bytes = read("a.zip");
        const FolderTree before = treeWithoutArchive();
        for (qsizetype at = 0; at < bytes.size(); ++at) {
            for (const char change : {'\x01', '\x80', '\xFF'}) {
                QByteArray changed = bytes;
                changed[at] = static_cast<char>(changed[at] ^ change);
                extract(write("a.zip", changed));
                FolderTree tree = treeWithoutArchive();
                for (const QByteArray& path : tree.keys()) {
                    if (before.contains(path)) continue;
                    // A name may differ, a content may not.
                    const bool isWhole = tree[path] == fileWith(game) || tree[path] == fileWith("another");
                    QVERIFY2(isWhole && path.startsWith("target/"), path);
                    QVERIFY(unlink(folder->native(path).constData()) == 0);
                    tree.remove(path);
                }
                QCOMPARE(tree, before);
            }
        }
    }
    void anything_but_a_regular_file_is_left_alone_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"missing.zip", "other", "pipe.zip", "linktopipe.zip", ""}) {
            QTest::newRow(name) << name;
        }
    }
    void anything_but_a_regular_file_is_left_alone() {
        QFETCH(QString, name);
        QCOMPARE(mkfifo(folder->native("pipe.zip").constData(), 0644), 0);
        softLink("pipe.zip", "linktopipe.zip");
        const FolderTree before = wholeTree();
        extract(name.isEmpty() ? name : folder->path(name));
        QCOMPARE(wholeTree(), before);
    }
    void an_unreadable_archive_is_left_alone() {
        const QString archive = makeArchive("a.zip", {{"a.gb", "a"}});
        setMode("a.zip", 0);
        setMode("target", 0777);
        const OrdinaryUser user;
        extract(archive);
        QCOMPARE(targetTree(), FolderTree());
    }
    void an_archive_that_vanishes_meanwhile_comes_out_all_the_same() {
        const QString archive = slowArchive();
        extractWhile(archive, [&] { QFile::remove(archive); });
        QCOMPARE(targetTree(), files({{"a.gb", large}, {"b.gb", "the second"}}));
    }
    void an_archive_that_is_cut_meanwhile_leaves_no_half_file() {
        const QString archive = slowArchive();
        extractWhile(archive, [&] { QFile::resize(archive, 1000); });
        QCOMPARE(targetTree(), FolderTree());
    }
    void an_archive_that_is_written_over_meanwhile_leaves_no_wrong_file() {
        const QString archive = slowArchive();
        extractWhile(archive, [&] {
            QFile file(archive);
            if (!file.open(QIODevice::ReadWrite)) qFatal("can't write over the archive");
            file.write(QByteArray(static_cast<qsizetype>(file.size()), 'x'));
        });
        QCOMPARE(targetTree(), FolderTree());
    }
    void an_archive_that_is_replaced_meanwhile_comes_out_as_it_was() {
        const QString archive = slowArchive();
        const QString other = makeArchive("b.zip", {{"c.gb", "c"}});
        extractWhile(archive, [&] { std::filesystem::rename(other.toStdString(), archive.toStdString()); });
        QCOMPARE(targetTree(), files({{"a.gb", large}, {"b.gb", "the second"}}));
    }
    void on_a_full_disk_what_fits_comes_out_and_no_half_file_is_left_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 99, 100, 999, 1000}) QTest::addRow("%d bytes", room) << room;
    }
    void on_a_full_disk_what_fits_comes_out_and_no_half_file_is_left() {
        QFETCH(int, room);
        const QByteArray game(1000, 'g');
        const QByteArray other(100, 'o');
        const QString archive = makeArchive("a.zip", {{"a.gb", game}, {"b.gb", other}, {"c.gb", ""}});
        {
            const FullDisk full(static_cast<rlim_t>(room));
            extract(archive);
        }
        FolderTree expected = files({{"c.gb", ""}});
        if (room >= 100) expected["b.gb"] = fileWith(other);
        if (room >= 1000) expected["a.gb"] = fileWith(game);
        QCOMPARE(targetTree(), expected);
    }
    void a_disk_that_fills_up_during_a_large_entry_leaves_no_half_file() {
        const QString archive = slowArchive();
        {
            const FullDisk full(10 << 20);
            extract(archive);
        }
        QCOMPARE(targetTree(), files({{"b.gb", "the second"}}));
    }
    void without_handles_nothing_is_unpacked() {
        const QString archive = makeArchive("a.zip", {{"a.gb", "a"}});
        rlimit previous{};
        getrlimit(RLIMIT_NOFILE, &previous);
        const rlimit none{0, previous.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
        extract(archive);
        setrlimit(RLIMIT_NOFILE, &previous);
        QCOMPARE(targetTree(), FolderTree());
    }
};

TORVANE_APPLESS_TEST(UnZipFailuresTest)
#include "UnZipFailuresTest.moc"

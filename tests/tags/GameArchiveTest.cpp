// SPDX-License-Identifier: MIT
// Archives whose directories say odd things, and limits on what is read.
#include "tags/images/GameArchive.h"
#include "support/Archive.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"
#include "tags/checks/ArchiveCheck.h"

#include <QCryptographicHash>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace torvane {
class GameArchiveTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QByteArray path() const { return folder->native("a.zip"); }
    void pack(const QList<ArchiveMember>& members) const { writeArchive(folder->path(u"a.zip"_s), members); }
    /// Changes a byte of the last member in the directory.
    void patch(int offset, int byte) const {
        QByteArray bytes = folder->read(u"a.zip"_s);
        bytes[bytes.lastIndexOf("PK\1\2") + offset] = static_cast<char>(byte);
        folder->write(u"a.zip"_s, bytes);
    }
    static QByteArray sha1(const QByteArray& bytes) {
        return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
    }
    static GameArchive::Images read(GameArchive& archive, size_t member) {
        const auto whole = [](const ImageEnd& end) { return std::vector{end.body}; };
        return archive.read(archive.members().at(member), WantedSums(4), whole);
    }
    QByteArrayList found() const {
        QByteArrayList all;
        for (const Finding& finding : ArchiveCheck::check(path(), NameCut(), [] { return true; }))
            all += finding.what;
        return all;
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void a_member_that_can_not_be_read_is_named_with_the_reason_data() {
        QTest::addColumn<int>("offset");
        QTest::addColumn<int>("byte");
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<QByteArrayList>("verified");
        QTest::newRow("encrypted") << 8 << 1 << QByteArray("it is encrypted")
                                   << QByteArrayList{"member with a password"};
        QTest::newRow("method") << 10 << 77 << QByteArray("it is packed by an unknown method")
                                << QByteArrayList{"member of an unknown packing"};
        QTest::newRow("size") << 27 << 0x70 << QByteArray("it is too large for a game") << QByteArrayList();
    }
    void a_member_that_can_not_be_read_is_named_with_the_reason() {
        QFETCH(int, offset);
        QFETCH(int, byte);
        pack({{u"a.gb"_s, "good"}, {u"b.gb"_s, "bad"}});
        patch(offset, byte);
        GameArchive archive(path(), NameCut());
        QVERIFY(archive.members().at(0).isUsual);
        QVERIFY(!archive.members().at(1).isUsual);
        QCOMPARE(read(archive, 0).fault, QByteArray());
        QTEST(read(archive, 1).fault, "fault");
        QVERIFY(read(archive, 1).images.empty());
        QTEST(found(), "verified");
    }
    void a_link_is_no_game() {
        pack({{u"a.gb"_s, "good"}, {u"b.gb"_s, "a.gb"}});
        patch(41, 0xA1);
        GameArchive archive(path(), NameCut());
        QCOMPARE(archive.members().size(), size_t{1});
        QCOMPARE(found(), QByteArrayList{"member that is not unpacked"});
    }
    void a_member_that_is_larger_than_its_directory_says_ends_at_the_limit() {
        pack({{u"a.gb"_s, QByteArray(100, 'a')}});
        patch(24, 10);
        GameArchive archive(path(), NameCut(), {.bytesPerEntry = 50});
        QCOMPARE(read(archive, 0).fault,
                 QByteArray("it is too large, or there are too many large ones before it"));
    }
    void all_members_together_have_a_limit() {
        pack({{u"a.gb"_s, QByteArray(100, 'a')}, {u"b.gb"_s, QByteArray(100, 'b')}});
        GameArchive archive(path(), NameCut(), {.bytesInAll = 150});
        QCOMPARE(read(archive, 0).fault, QByteArray());
        QCOMPARE(read(archive, 1).fault,
                 QByteArray("it is too large, or there are too many large ones before it"));
    }
    void several_lengths_of_one_member_are_summed_up() {
        const QByteArray bytes = QByteArray(3000, 'x') + "\r\n\r\n";
        pack({{u"a.gb"_s, bytes}});
        GameArchive archive(path(), NameCut());
        const auto lengths = [](const ImageEnd&) { return std::vector<qint64>{3004, 3002, 1, 3000}; };
        const auto images = archive.read(archive.members().at(0), WantedSums(4), lengths).images;
        QCOMPARE(images.size(), size_t{4});
        for (const SummedImage& image : images) QCOMPARE(image.sums[2], sha1(bytes.first(image.length)));
    }
    void names_that_differ_in_case_alone_are_one_on_the_disk() {
        pack({{u"A.gb"_s, "x"}, {u"a.gb"_s, "y"}, {u"É.gb"_s, "x"}, {u"é.gb"_s, "y"}});
        QCOMPARE(found(), (QByteArrayList{"two members of a name", "two members of a name"}));
    }
};
} // namespace torvane

using torvane::GameArchiveTest;
TORVANE_APPLESS_TEST(GameArchiveTest)
#include "GameArchiveTest.moc"

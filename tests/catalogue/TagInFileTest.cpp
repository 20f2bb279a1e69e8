// SPDX-License-Identifier: MIT
// Tags in whole files: the search by blocks must find what the search in memory finds, wherever a block ends.
#include "catalogue/TagInFile.h"
#include "catalogue/TagLine.h"
#include "platform/base/File.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <random>

using namespace torvane;

namespace {
constexpr qsizetype block = 64 << 10;

// The kept length of the image; "none" without a marker, or "fails" with the number of the failure.
QByteArray outcomeOf(const std::function<std::optional<qint64>()>& keptLength) {
    QByteArray outcome = "none";
    const auto failure = failureOf([&] {
        if (const auto length = keptLength()) outcome = QByteArray::number(*length);
    });
    return failure ? "fails " + QByteArray::number(*failure) : outcome;
}

QByteArray inMemory(const QByteArray& bytes) {
    return outcomeOf([&]() -> std::optional<qint64> {
        if (TagLine::markerIn(bytes) < 0) return std::nullopt;
        return TagLine::keptImage(bytes).size();
    });
}
} // namespace

class TagInFileTest : public FileFixture {
    Q_OBJECT

    // "$" means the separator and "#" the marker.
    static QByteArray bytes(QByteArray text) {
        return text.replace('#', TagLine::marker).replace('$', TagLine::separator);
    }
    QByteArray inFile(const QByteArray& bytes) const {
        const File file(write("a.gb", bytes));
        const QByteArray outcome = outcomeOf([&] { return TagInFile::keptLength(file.handle()); });
        return TagInFile::hasMarker(file.handle()) == (outcome != "none") ? outcome
                                                                          : QByteArray("they differ");
    }

private slots:
    void init() { renewFolder(); }

    // As after the content has been exchanged by a program that keeps the time.
    void a_remembered_place_without_a_marker_is_not_believed() {
        QCOMPARE(inFile(bytes("rom#c$t$d$i$3$")), QByteArray("3"));
        makeOld("a.gb");
        const Handle remembered(open(folder->native("a.gb").constData(), O_RDWR));
        TagInFile::rememberMarker(remembered, 3);
        QCOMPARE(pwrite(remembered.number(), bytes("game#c$t$d$i$4").constData(), 20, 0), ssize_t{20});
        makeOld("a.gb");
        QCOMPARE(TagInFile::keptLength(remembered), std::optional<qint64>(4));
    }

    void a_short_file_is_parsed_as_in_memory_data() {
        QTest::addColumn<QByteArray>("text");
        for (const char* text : {"",
                                 "rom",
                                 "#",
                                 "rom#c$t$d$i$3$\r\n",
                                 "rom#c$t$d$i$2$",
                                 "rom#c$t$d$i$9$",
                                 "rom#c$t$d$i$",
                                 "rom#c$t$d$i$ 1 ",
                                 "rom#c$t$d$i$-1$",
                                 "rom#c$t$d$i$x$",
                                 "rom#c$t$d$i",
                                 "rom#c$t#d$i$1$",
                                 "rom#c$t$d$i$2#$",
                                 "rom##c$t$d$i$2$",
                                 "r#m#c$t$d$i$2$",
                                 "rom#V\xF6$R\xE4N$t$d$i$2$",
                                 "rom#V\xF6$R\xE4N$t$d$i",
                                 "rom#V\xF6$R\xE4#$t$d$i$2$",
                                 "rom#V\xF6",
                                 "r$o$m#$$$$1$",
                                 "ID3TAGrom#"})
            QTest::newRow(text) << QByteArray(text);
    }
    void a_short_file_is_parsed_as_in_memory() {
        QFETCH(QByteArray, text);
        QCOMPARE(inFile(bytes(text)), inMemory(bytes(text)));
    }
    void a_tag_across_the_end_of_a_block_is_parsed() {
        const QByteArray tag = bytes("#V\xF6$R\xE4N$t$d$i$12$\r\n");
        for (qsizetype front = block - tag.size() - 8; front < block + 8; ++front) {
            QCOMPARE(inFile(QByteArray(front, 'r') + tag), QByteArray("12"));
            QCOMPARE(inFile(QByteArray(front + block - 6, 'r') + tag), QByteArray("12"));
        }
    }
    void a_second_marker_across_the_end_of_a_block_ends_the_tag() {
        const QByteArray tag = bytes("rom#c$t$d$i$");
        for (qsizetype end = block - 8; end < block + 8; ++end) {
            const QByteArray text = tag + QByteArray(end - tag.size() - 1, ' ') + bytes("2#7$");
            QCOMPARE(inFile(text), QByteArray("2"));
            QCOMPARE(inFile(text), inMemory(text));
        }
    }
    void half_a_marker_at_the_end_of_the_file_is_none() {
        for (const qsizetype size : {block - 6, block - 1, block, block + 1, 2 * block - 12}) {
            QCOMPARE(inFile(QByteArray(size, 'r') + "ID3TAG"), QByteArray("none"));
        }
    }
    void any_file_is_parsed_as_in_memory() {
        std::mt19937 random(7);
        const auto below = [&](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        const QByteArrayList pieces = {"#",  "$", "V\xF6$R\xE4N$", "1", "700000", " ", "ID3TAG", "r",
                                       ".5", "-"};
        for (int round = 0; round < 60; ++round) {
            QByteArray text;
            for (int i = below(30); i > 0; --i) {
                text += pieces[below(static_cast<int>(pieces.size()))];
                if (below(8) == 0) text += QByteArray(block - below(20), below(2) == 0 ? ' ' : 'r');
            }
            QCOMPARE(inFile(bytes(text)), inMemory(bytes(text)));
        }
    }
    void a_size_of_more_than_16_mib_is_no_number() {
        const QByteArray tag = bytes("rom#c$t$d$i$");
        QCOMPARE(inFile(tag + QByteArray((16 << 20) - 1, ' ') + '2'), QByteArray("2"));
        QCOMPARE(inFile(tag + QByteArray(16 << 20, ' ') + '2'), QByteArray("fails 13"));
    }
};

TORVANE_APPLESS_TEST(TagInFileTest)
#include "TagInFileTest.moc"

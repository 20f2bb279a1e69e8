// SPDX-License-Identifier: MIT
// Entries of lists come back as they were added.
#include "tags/lists/EntryPack.h"
#include "support/TestMain.h"

using namespace torvane;

class EntryPackTest : public QObject {
    Q_OBJECT

    // It bears the title of some entries.
    static QByteArray romOf(const QByteArray& title) {
        return title.size() % 2 == 0 ? title + ".gb" : QByteArray("other.gb");
    }

private slots:
    void entries_of_any_size_come_back() {
        EntryPack pack;
        const std::array<qsizetype, 6> lengths{0, 1, 255, 256, 257, 4096};
        for (const qsizetype length : lengths) {
            ListEntry entry;
            entry.title = QByteArray(length, 't');
            entry.rom = romOf(entry.title);
            entry.company = QByteArray(length, '\0');
            entry.size = length - 1; // of the first one: none
            entry.sums[2] = QByteArray(20, static_cast<char>(length));
            pack.add(entry);
        }
        size_t count = 0;
        pack.each([&](const ListEntry& entry) {
            const qsizetype length = lengths[count++];
            QCOMPARE(entry.title, QByteArray(length, 't'));
            QCOMPARE(entry.rom, romOf(entry.title));
            QCOMPARE(entry.company, QByteArray(length, '\0'));
            QCOMPARE(entry.year, QByteArray());
            QCOMPARE(entry.size, qint64{length - 1});
            QCOMPARE(entry.sums, (Sums{"", "", QByteArray(20, static_cast<char>(length)), ""}));
        });
        QCOMPARE(count, lengths.size());
    }
};

TORVANE_APPLESS_TEST(EntryPackTest)
#include "EntryPackTest.moc"

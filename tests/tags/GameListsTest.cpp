// SPDX-License-Identifier: MIT
// Several lists of known games: how many entries they may have, and lists that change while they are used.
#include "tags/lists/GameLists.h"
#include "MemoryFile.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"
#include "tags/session/Interruption.h"

using namespace torvane;

class GameListsTest : public QObject {
    Q_OBJECT

    // The lists of one command.
    class Given {
    public:
        explicit Given(size_t mostEntries) : lists(m_session, mostEntries) {}

        QByteArrayList titles() const {
            QByteArrayList all;
            lists.eachEntry([&](const ListEntry& entry, size_t number) {
                all += QByteArray::number(static_cast<int>(number)) + entry.title.right(2);
            });
            return all;
        }
        QByteArray messages() const { return m_errors.content(); }

    private:
        MemoryFile m_errors;
        Output m_output{-1};
        Reports m_reports{m_errors.descriptor()};
        Interruption m_interruption;
        Session m_session{QByteArray(), m_output, m_reports, m_interruption};

    public:
        GameLists lists;
    };

    std::unique_ptr<TestFolder> folder;

    static QByteArray entries(const QByteArrayList& titles) {
        QByteArray text;
        for (const QByteArray& title : titles)
            text += "<game name=\"" + title + "\"><rom size=\"9\" crc=\"" + title.right(1).toHex() +
                    "\"/></game>";
        return text;
    }
    QByteArray list(const char* name, const QByteArrayList& titles, const QByteArray& more = {}) const {
        folder->writeNative(name, "<datafile>" + entries(titles) + more + "</datafile>");
        return folder->native(name);
    }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void as_many_entries_as_are_permitted_are_taken() {
        Given given(4);
        given.lists.add(list("one", {"A", "B"}));
        given.lists.add(list("two", {"C", "D"}));
        QCOMPARE(given.titles(), (QByteArrayList{"0A", "1B", "2C", "3D"}));
        QCOMPARE(given.lists.count(), size_t{4});
        QCOMPARE(given.messages(), QByteArray());
    }
    void a_list_with_which_there_are_too_many_is_left_out_and_others_are_not() {
        Given given(4);
        given.lists.add(list("one", {"A", "B"}));
        given.lists.add(list("two", {"C", "D", "E"}));
        given.lists.add(list("three", {"F"}));
        QCOMPARE(given.titles(), (QByteArrayList{"0A", "1B", "2F"}));
        QCOMPARE(given.messages(),
                 "torvane-tags: " + folder->native("two") + ": there are too many entries\n");
    }
    void a_broken_list_takes_no_room() {
        Given given(4);
        given.lists.add(list("broken", {"A", "B"}, "<broken"));
        given.lists.add(list("good", {"C", "D", "E", "F"}));
        QCOMPARE(given.titles().size(), 4);
        QCOMPARE(given.lists.count(), size_t{4});
        QCOMPARE(given.messages().count('\n'), 1);
    }
    void a_list_with_too_many_entries_is_not_read_to_its_end() {
        Given given(4);
        given.lists.add(list("one", QByteArrayList(10000, "A"), "<game><rom crc=\"x\"/></game>"));
        QVERIFY(given.lists.isEmpty());
        QCOMPARE(given.messages(),
                 "torvane-tags: " + folder->native("one") + ": there are too many entries\n");
    }
    void numbers_stay_when_a_list_changes() {
        const QByteArray padding(3000, 'n'); // these are not kept, but read again
        QByteArrayList titles;
        for (int i = 0; i < 9000; ++i) titles += padding + "A";
        for (const qsizetype later : {8000, 9500}) {
            Given given(20000);
            given.lists.add(list("one", titles));
            given.lists.add(list("two", {"B"}));
            list("one", QByteArrayList(later, padding + "A"));
            QCOMPARE(given.titles().back(), QByteArray("9000B"));
            QCOMPARE(given.titles().size(), std::min<qsizetype>(later, 9000) + 1);
            QVERIFY(given.messages().startsWith("torvane-tags: " + folder->native("one") + ": "));
        }
    }
};

TORVANE_APPLESS_TEST(GameListsTest)
#include "GameListsTest.moc"

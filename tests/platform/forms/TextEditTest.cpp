// SPDX-License-Identifier: MIT
// What an edit did, from the texts before and after it.
#include "platform/forms/TextEdit.h"
#include "support/TestMain.h"

#include <QRandomGenerator>

using namespace torvane;
using namespace Qt::StringLiterals;

class TextEditTest : public QObject {
    Q_OBJECT

    // A short text of few letters, so that pieces have their like beside them; some are halves of pairs.
    static QString anyText(QRandomGenerator& random) {
        static const QStringList letters{u"a"_s, u"b"_s, u"\U0001F600"_s, u"\U0001F601"_s};
        QString text;
        for (auto i = random.bounded(6); i > 0; --i) text += letters[random.bounded(4)];
        return text;
    }

private slots:
    void the_smallest_edit_that_ends_at_the_cursor_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QList<qsizetype>>("expected"); // start, removed, added
        using Pieces = QList<qsizetype>;
        QTest::newRow("nothing") << u"ab"_s << u"ab"_s << 1 << Pieces{1, 0, 0};
        QTest::newRow("typed at the end") << u"ab"_s << u"abc"_s << 3 << Pieces{2, 0, 1};
        QTest::newRow("typed at the beginning") << u"aa"_s << u"aaa"_s << 1 << Pieces{0, 0, 1};
        QTest::newRow("typed between its like") << u"aa"_s << u"aaa"_s << 2 << Pieces{1, 0, 1};
        QTest::newRow("backspace") << u"abc"_s << u"ac"_s << 1 << Pieces{1, 1, 0};
        QTest::newRow("replaced") << u"abcd"_s << u"axyd"_s << 3 << Pieces{1, 2, 2};
        QTest::newRow("all") << u"abc"_s << u""_s << 0 << Pieces{0, 3, 0};
        QTest::newRow("a cursor far behind") << u"ab64"_s << u"xab64"_s << 5 << Pieces{0, 0, 1};
        QTest::newRow("a cursor before") << u"abc"_s << u"abxc"_s << 0 << Pieces{2, 0, 1};
        QTest::newRow("first half of a pair in common")
            << u"a\U0001F600b"_s << u"a\U0001F601b"_s << 3 << Pieces{1, 2, 2};
        QTest::newRow("second half of a pair in common")
            << u"a\U0001F600b"_s << u"a\U0001FA00b"_s << 3 << Pieces{1, 2, 2};
    }
    void the_smallest_edit_that_ends_at_the_cursor() {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(int, cursor);
        const TextEdit edit = TextEdit::between(before, after, cursor);
        const QList<qsizetype> found{edit.start, edit.removed, edit.added};
        QTEST(found, "expected");
    }
    void the_edit_makes_the_one_text_of_the_other() {
        QRandomGenerator random(1);
        for (int i = 0; i < 20'000; ++i) {
            const QString before = anyText(random);
            const QString after = anyText(random);
            const int cursor = random.bounded(static_cast<int>(after.size()) + 1);
            const TextEdit edit = TextEdit::between(before, after, cursor);
            QString made = before;
            made.replace(edit.start, edit.removed, after.mid(edit.start, edit.added));
            QCOMPARE(made, after);
            QVERIFY(!after.mid(edit.start, edit.added).startsWith(QChar(0xDE00)));
            QVERIFY(!after.left(edit.start).endsWith(QChar(0xD83D)));
        }
    }
};

TORVANE_GUILESS_TEST(TextEditTest)
#include "TextEditTest.moc"

// SPDX-License-Identifier: MIT
// The texts of the assistant, how they are typed, and where they are on the page.
#include "support/OpenedAssistant.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

class NewAssistantTextsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedAssistant> opened;
    NewAssistant& window() const { return opened->assistant(); }

    // The first and the last pixel row of each line of text that only the second picture has.
    static QList<QPair<int, int>> linesBetween(const QImage& empty, const QImage& written) {
        QList<QPair<int, int>> lines;
        const QRect row(0, 0, empty.width(), 1);
        for (int y = 0; y < empty.height(); ++y) {
            if (empty.copy(row.translated(0, y)) == written.copy(row.translated(0, y))) continue;
            if (lines.isEmpty() || lines.last().second < y - 1) lines.append({y, y});
            lines.last().second = y;
        }
        return lines;
    }

private slots:
    void init() { opened = std::make_unique<OpenedAssistant>(); }
    void cleanup() { opened.reset(); }

    void the_buttons_are_named_in_the_users_language() {
        opened->openAssistant();
        QCOMPARE(window().chameleonButton1.Caption(), u"Next >"_s);
        QCOMPARE(window().chameleonButton3.Caption(), u"< Start"_s);
        QCOMPARE(window().ChameleonButton2.Caption(), u"Exit"_s);
        QCOMPARE(window().Browse.Caption(), u"Browse…"_s);
        QCOMPARE(window().chameleonButton4.Caption(), u"Torvane 1.1 » "_s);
    }

    void the_text_types_itself_one_character_every_100_milliseconds() {
        opened->openAssistant();
        QCOMPARE(window().Timer1.Interval(), 100);
        window().ShowDialog(u"abc"_s);
        QCOMPARE(window().Label1.Caption(), QString());
        emit window().Timer1.Tick();
        QCOMPARE(window().Label2.Caption(), u"a"_s);
        QCOMPARE(window().Label1.Caption(), u"a"_s);
        QTRY_COMPARE_WITH_TIMEOUT(window().Label1.Caption(), u"abc"_s, 2000);
        QVERIFY(!window().Timer1.Enabled());
    }
    void a_new_text_replaces_the_one_being_typed() {
        opened->openAssistant();
        emit window().Timer1.Tick();
        window().ShowDialog(u"new"_s);
        QCOMPARE(opened->typed(), u"new"_s);
    }

    void the_answers_are_at_their_hot_areas_in_every_language_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("keys");
        for (const char* language : {"esp", "cat", "eng"}) {
            for (const char* keys : {"f2 f3 f4", "f5 f6 f7", "f5b f6 f7"})
                QTest::addRow("%s %s", language, keys) << QString::fromLatin1(language) << QByteArray(keys);
        }
    }
    void the_answers_are_at_their_hot_areas_in_every_language() {
        QFETCH(QString, language);
        QFETCH(QByteArray, keys);
        opened->world.useLanguage(language.toLatin1());
        opened->openAssistant();
        window().ShowDialog(QString());
        const QImage empty = window().grab().toImage();
        const QList<QByteArray> key = keys.split(' ');
        window().ShowDialog(opened->page(key[0].constData(), key[1].constData(), key[2].constData()));
        opened->typed();
        const QList<QPair<int, int>> lines = linesBetween(empty, window().grab().toImage());
        QCOMPARE(lines.size(), 4);
        const QRect first = window().AddFile.geometry();
        const QRect second = window().AddDir.geometry();
        QCOMPARE(window().ChameleonButton5.geometry(), first);
        QCOMPARE(window().ChameleonButton6.geometry(), second);
        QVERIFY2(lines[2].first >= first.top() - 2 && lines[2].second <= first.bottom(),
                 qPrintable(u"%1 to %2"_s.arg(lines[2].first).arg(lines[2].second)));
        QVERIFY2(lines[3].first >= second.top() && lines[3].second <= second.bottom() + 2,
                 qPrintable(u"%1 to %2"_s.arg(lines[3].first).arg(lines[3].second)));
    }
    void the_text_of_a_page_with_marks_ends_above_them_data() {
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QByteArray>("key");
        for (const char* language : {"esp", "cat", "eng"}) {
            for (const char* key : {"f9", "f10", "f11", "f12"})
                QTest::addRow("%s %s", language, key) << QByteArray(language) << QByteArray(key);
        }
    }
    void the_text_of_a_page_with_marks_ends_above_them() {
        QFETCH(QByteArray, language);
        QFETCH(QByteArray, key);
        opened->world.useLanguage(language);
        opened->openAssistant();
        window().ShowDialog(QString());
        const QImage empty = window().grab().toImage();
        window().ShowDialog(opened->said(key.constData()));
        opened->typed();
        const QList<QPair<int, int>> lines = linesBetween(empty, window().grab().toImage());
        QVERIFY(!lines.isEmpty());
        QVERIFY2(lines.last().second < window().AddFile.y(), qPrintable(QString::number(lines.size())));
    }
};

TORVANE_TEST(NewAssistantTextsTest)
#include "NewAssistantTextsTest.moc"

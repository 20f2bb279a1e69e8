// SPDX-License-Identifier: MIT
// Where names are cut: at every dot, or at the last one, as the user's settings say.
#include "core/NameSetting.h"
#include "support/Failing.h"
#include "support/FakeWorld.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

namespace torvane {
class NameCutTest : public QObject {
    Q_OBJECT

    static QString text(std::string_view bytes) {
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }

private slots:
    void whole_names_are_cut_at_the_last_dot_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("empty") << u""_s << u""_s << u""_s;
        QTest::newRow("no dot") << u"game"_s << u"game"_s << u""_s;
        QTest::newRow("one dot") << u"game.gb"_s << u"game"_s << u"gb"_s;
        QTest::newRow("many dots") << u"Dr. Mario (JU) (V1.1) [!].gb"_s << u"Dr. Mario (JU) (V1.1) [!]"_s
                                   << u"gb"_s;
        QTest::newRow("two dots in a row") << u"a..gb"_s << u"a."_s << u"gb"_s;
        QTest::newRow("a dot at the end") << u"a.gb."_s << u"a.gb"_s << u""_s;
        QTest::newRow("a dot at the beginning") << u".gb"_s << u""_s << u"gb"_s;
        QTest::newRow("dots at both ends") << u".a."_s << u".a"_s << u""_s;
        QTest::newRow("only dots") << u"..."_s << u".."_s << u""_s;
        QTest::newRow("accents") << u"Señor. %s.gb"_s << u"Señor. %s"_s << u"gb"_s;
        QTest::newRow("line ends") << u"a.\nb.g\nb"_s << u"a.\nb"_s << u"g\nb"_s;
    }
    void whole_names_are_cut_at_the_last_dot() {
        QFETCH(QString, name);
        QFETCH(QString, first);
        QFETCH(QString, second);
        const NameCut cut = NameCut::chosen(u"whole"_s);
        QCOMPARE(cut.firstPiece(name), first);
        QCOMPARE(cut.secondPiece(name), second);
        const QByteArray bytes = name.toUtf8();
        QCOMPARE(text(cut.firstPieceOf(bytes)), first);
        QCOMPARE(text(cut.secondPieceOf(bytes)), second);
    }
    void otherwise_the_pieces_are_those_between_the_dots_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("no dot") << u"game"_s << u"game"_s << u""_s;
        QTest::newRow("many dots") << u"Dr. Mario (V1.1).gb"_s << u"Dr"_s << u" Mario (V1"_s;
        QTest::newRow("two dots in a row") << u"a..gb"_s << u"a"_s << u""_s;
        QTest::newRow("a dot at the end") << u"a.gb."_s << u"a"_s << u"gb"_s;
    }
    void otherwise_the_pieces_are_those_between_the_dots() {
        QFETCH(QString, name);
        const QByteArray bytes = name.toUtf8();
        const NameCut cut;
        QTEST(cut.firstPiece(name), "first");
        QTEST(cut.secondPiece(name), "second");
        QTEST(text(cut.firstPieceOf(bytes)), "first");
        QTEST(text(cut.secondPieceOf(bytes)), "second");
    }
    void only_the_word_whole_changes_the_cut_data() {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("first");
        QTest::newRow("whole") << u"whole"_s << u"a.b"_s;
        for (const char* value : {"", "Whole", "WHOLE", "whole.", "wholes", "1", "True", "last", "every"}) {
            QTest::newRow(value) << QString::fromLatin1(value) << u"a"_s;
        }
    }
    void only_the_word_whole_changes_the_cut() {
        QFETCH(QString, value);
        FakeWorld world;
        world.setSetting("Names", value);
        QTEST(chosenNameCut(world.settings).firstPiece(u"a.b.gb"_s), "first");
    }
    void an_absent_setting_cuts_at_every_dot() {
        FakeWorld world;
        QCOMPARE(chosenNameCut(world.settings).firstPiece(u"a.b.gb"_s), u"a"_s);
        QCOMPARE(world.setting("Names"), u"(absent)"_s);
    }
};
} // namespace torvane

using torvane::NameCutTest;
TORVANE_APPLESS_TEST(NameCutTest)
#include "NameCutTest.moc"

// SPDX-License-Identifier: MIT
// Options with and without values, and operands.
#include "core/Arguments.h"
#include "support/TestMain.h"

using namespace torvane;

class ArgumentsTest : public QObject {
    Q_OBJECT

    using Kind = OptionForm::Kind;
    static Arguments read(const QByteArrayList& arguments,
                          Arguments::Extent extent = Arguments::Extent::all) {
        return Arguments::read(arguments,
                               {{"--help", Kind::question},
                                {"--flag"},
                                {"--path", Kind::value, "a path"},
                                {"--text", Kind::text, "a text"}},
                               extent);
    }

private slots:
    void flags_values_and_operands_may_be_mixed() {
        const Arguments given = read({"a", "--flag", "b", "--path", "p q", "--text=\xFF=", "c"});
        QCOMPARE(given.operands, (QByteArrayList{"a", "b", "c"}));
        QVERIFY(given.has("--flag"));
        QCOMPARE(given.value("--path").value(), QByteArray("p q"));
        QCOMPARE(given.value("--text").value(), QByteArray("\xFF="));
        QVERIFY(!given.has("--help"));
        QVERIFY(given.fault.isEmpty());
    }
    void of_an_option_that_is_repeated_the_last_value_counts() {
        QCOMPARE(read({"--path=a", "--text", "x", "--path", "b"}).value("--path").value(), QByteArray("b"));
    }
    void a_text_may_be_empty_and_a_value_may_not() {
        QCOMPARE(read({"--text", ""}).value("--text").value(), QByteArray(""));
        QCOMPARE(read({"--text="}).value("--text").value(), QByteArray(""));
        QCOMPARE(read({"--path", ""}).fault, QByteArray("option '--path' needs a path"));
        QCOMPARE(read({"--path="}).fault, QByteArray("option '--path' needs a path"));
    }
    void a_value_may_look_like_an_option() {
        QCOMPARE(read({"--text", "--flag"}).value("--text").value(), QByteArray("--flag"));
        QCOMPARE(read({"--text", "--"}).value("--text").value(), QByteArray("--"));
    }
    void an_option_at_the_end_lacks_its_value() {
        QCOMPARE(read({"a", "--text"}).fault, QByteArray("option '--text' needs a text"));
        QCOMPARE(read({"--path"}).fault, QByteArray("option '--path' needs a path"));
    }
    void a_flag_takes_no_value() {
        QCOMPARE(read({"--flag=1"}).fault, QByteArray("option '--flag' takes no value"));
    }
    void nothing_after_a_question_or_a_fault_is_read() {
        QVERIFY(read({"--help", "--nonsense"}).fault.isEmpty());
        const Arguments refused = read({"--nonsense\n", "--help", "a"});
        QCOMPARE(refused.fault, QByteArray("unknown option '--nonsense?'"));
        QVERIFY(!refused.has("--help") && refused.operands.isEmpty());
    }
    void everything_after_two_dashes_is_an_operand() {
        QCOMPARE(read({"--", "--flag", "--", "-"}).operands, (QByteArrayList{"--flag", "--", "-"}));
    }
    void a_reading_up_to_the_first_operand_leaves_the_rest() {
        const Arguments given =
            read({"--path", "p", "list", "--nonsense", "x"}, Arguments::Extent::toTheOperand);
        QCOMPARE(given.rest, (QByteArrayList{"list", "--nonsense", "x"}));
        QVERIFY(given.has("--path") && given.operands.isEmpty() && given.fault.isEmpty());
    }
};

TORVANE_APPLESS_TEST(ArgumentsTest)
#include "ArgumentsTest.moc"

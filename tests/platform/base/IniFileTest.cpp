// SPDX-License-Identifier: MIT
// Files in INI form: which values are found in valid and in broken files, and what a change preserves.
#include "platform/base/IniFile.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

namespace {
using Value = std::optional<QByteArray>;
} // namespace

Q_DECLARE_METATYPE(Value)

class IniFileTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;

    QString file(const QByteArray& bytes) const { return folder->write(QStringLiteral("a.ini"), bytes); }
    QByteArray content() const { return folder->read(QStringLiteral("a.ini")); }

private slots:
    void init() { folder = std::make_unique<TestFolder>(); }

    void a_value_is_read_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<Value>("expected");
        const auto row = [](const char* name, const QByteArray& bytes, const Value& expected) {
            QTest::newRow(name) << bytes << expected;
        };
        row("plain", "[S]\nk=v\n", "v");
        row("CR LF", "[S]\r\nk=v\r\n", "v");
        row("without a line end", "[S]\nk=v", "v");
        row("blanks around it", "  [ S ]  \n\t k \t= \t v w \t\n", "v w");
        row("empty", "[S]\nk=\n", "");
        row("empty after another value", "[S]\nj=other\nk=\nl=more\n", "");
        row("case of section and key", "[s]\nK=v\n", "v");
        row("doubled key: the last one", "[S]\nk=1\nK=2\n", "2");
        row("doubled section", "[S]\nj=1\n[T]\nk=no\n[s]\nk=v\n", "v");
        row("other section", "[T]\nk=v\n", std::nullopt);
        row("other key", "[S]\nkk=v\n", std::nullopt);
        row("no section", "k=v\n", std::nullopt);
        row("comments", "; k=1\n# k=1\n[S]\n;k=2\n#k=3\nk=v\n;k=4", "v");
        row("a comment sign inside of the value", "[S]\nk=v ; w # x\n", "v ; w # x");
        row("equals signs in the value", "[S]\nk==a=b=\n", "=a=b=");
        row("quotes", "[S]\nk=\"a\" 'b\n", "\"a\" 'b");
        row("backslashes", "[S]\nk=\\a\\\\b\\\n", "\\a\\\\b\\");
        row("brackets", "[S]\nk=[a]\n", "[a]");
        row("three angles are a value like others", "[S]\nk=<<<END\nj=1\n", "<<<END");
        row("8-bit text", "[S]\nk=Se\xF1or \xA7\n", "Se\xF1or \xA7");
        row("UTF-8", "[S]\nk=Señor\n", "Señor");
        row("byte order mark", "\xEF\xBB\xBF[S]\nk=v\n", "v");
        row("format signs", "[S]\nk=%s%n%1\n", "%s%n%1");
        row("leading zero byte", QByteArray("\0[S]\nk=v\n", 9), "v");
        row("zero byte in the value", QByteArray("[S]\nk=a\0b\n", 10), "a b");
        row("a line without sign", "[S]\njunk\nk=v\nmore junk\n", "v");
        row("a line without sign is no empty value", "[S]\nj=1\nk\n", std::nullopt);
        row("a line without key", "[S]\n=1\nk=v\n", "v");
        row("a section without name", "[]\nk=no\n[S]\nk=v\n", "v");
        row("an unclosed section after it", "[S]\nk=v\n[T\n", "v");
        row("an unclosed section begins none", "[S]\n[T\nk=v\n", "v");
        row("an unclosed section is not closed by a later line", "[S]\n[T\nk]=no\nk=v\n", "v");
        row("a section's name on a line of its own", "[S]\n[\nT]\nk=v\n", "v");
        row("byte order marks inside", "[T]\n\xEF\xBB\xBF[S]\n\xEF\xBB\xBF\xEF\xBB\xBFk=v\n", "v");
        row("only a bracket", "[", std::nullopt);
        row("only a sign", "=", std::nullopt);
        row("empty file", "", std::nullopt);
        row("only line ends", "\r\n\r\n\n", std::nullopt);
        row("only a comment", ";", std::nullopt);
    }
    void a_value_is_read() {
        QFETCH(QByteArray, bytes);
        QFETCH(Value, expected);
        QCOMPARE(IniFile::value(file(bytes), "S", "k"), expected);
    }
    void a_file_that_can_not_be_read_has_no_values() {
        const QString path = file("[S]\nk=v\n");
        QCOMPARE(IniFile::value(folder->path(QStringLiteral("gone.ini")), "S", "k"), Value());
        QCOMPARE(IniFile::value(folder->path(), "S", "k"), Value());
        QCOMPARE(IniFile::value(QString(), "S", "k"), Value());
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        QCOMPARE(IniFile::value(folder->path(QStringLiteral("pipe")), "S", "k"), Value());
        folder->setMode(QStringLiteral("a.ini"), 0);
        const OrdinaryUser user;
        QCOMPARE(IniFile::value(path, "S", "k"), Value());
    }
    void a_file_larger_than_4_mib_has_no_values_and_is_never_changed() {
        const QByteArray head = "[S]\nk=v\n;";
        const QString path = file(head + QByteArray((4 << 20) - head.size(), 'x'));
        QCOMPARE(IniFile::value(path, "S", "k"), Value("v"));
        QVERIFY(QFile::resize(path, (4 << 20) + 1));
        QCOMPARE(IniFile::value(path, "S", "k"), Value());
        QCOMPARE(failureOf([&] { IniFile::setValue(path, "S", "k", "w"); }),
                 number(RuntimeFailure::outOfMemory));
        QCOMPARE(content().size(), (4 << 20) + 1);
    }
    void a_value_is_read_as_the_file_says_now() {
        const QString path = file("[S]\nk=1\n");
        QCOMPARE(IniFile::value(path, "S", "k"), Value("1"));
        file("[S]\nk=2\n");
        QCOMPARE(IniFile::value(path, "S", "k"), Value("2"));
    }

    void a_new_file_holds_the_section_and_the_value() {
        IniFile::setValue(folder->path(QStringLiteral("a.ini")), "S", "k", "v");
        QCOMPARE(content().simplified(), QByteArray("[S] k = v"));
    }
    void a_replaced_value_keeps_its_place_and_its_name_of_either_case() {
        const QString path = file("[S]\nFirst=1\nSecond=2\nThird=3\n");
        IniFile::setValue(path, "s", "SECOND", "new");
        QCOMPARE(content().simplified(), QByteArray("[S] First = 1 Second = new Third = 3"));
    }
    void other_values_and_comments_are_kept() {
        const QString path = file("; about this file\n\nloose=0\n; about S\n[S]\n# about "
                                  "k\nk=1\nempty=\nlast=2\n; about T\n[T]\nk=other\n");
        for (int round = 0; round < 3; ++round) IniFile::setValue(path, "S", "k", QByteArray::number(round));
        QCOMPARE(content().simplified(), QByteArray("; about this file loose = 0 ; about S [S] # about k k = "
                                                    "2 empty = last = 2 ; about T [T] k = other"));
    }
    void an_empty_value_stays_empty_when_others_are_changed() {
        const QString path = file("");
        IniFile::setValue(path, "S", "j", "full");
        IniFile::setValue(path, "S", "k", "");
        IniFile::setValue(path, "S", "l", "more");
        IniFile::setValue(path, "S", "l", "yet more");
        QCOMPARE(IniFile::value(path, "S", "k"), Value(""));
        QCOMPARE(IniFile::value(path, "S", "j"), Value("full"));
    }
    void storing_the_same_value_again_changes_no_byte() {
        const QString path = file("; top\n\n\n; more\n[S]\n\n; k\nk=1\n\n[T]\nx=2");
        IniFile::setValue(path, "S", "k", "v");
        const QByteArray first = content();
        IniFile::setValue(path, "S", "k", "v");
        QCOMPARE(content(), first);
    }
    void an_unclosed_section_gets_no_keys_and_does_not_grow() {
        const QString path = file("[S]\nj=1\n[T\nl=2\n");
        for (int round = 0; round < 3; ++round) {
            IniFile::setValue(path, "S", "k", "v");
            QCOMPARE(content().simplified(), QByteArray("[S] j = 1 l = 2 k = v"));
        }
    }
    void a_byte_order_mark_that_moves_to_the_front_hides_no_key() {
        const QString path = file("junk\n\xEF\xBB\xBFj=1\n");
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(IniFile::value(path, "", "j"), Value("1"));
            IniFile::setValue(path, "", "k", "v");
        }
    }
    void only_blanks_and_tabs_are_trimmed_around_names() {
        const QString path = file("[ \v\fS\v\t]\n \vk\f =v\n");
        QCOMPARE(IniFile::value(path, "\v\fS\v", "\vk\f"), Value("v"));
        QCOMPARE(IniFile::value(path, "S", "k"), Value());
    }
    void a_name_with_a_zero_byte_is_not_cut_there() {
        const QString path = file("[S]\nk=v\n");
        QCOMPARE(IniFile::value(path, "S", QByteArray("k\0x", 3)), Value());
        QCOMPARE(IniFile::value(path, QByteArray("S\0x", 3), "k"), Value());
    }
    void a_broken_file_gets_a_value_and_keeps_the_valid_ones() {
        // The array keeps the zero byte that would end a plain literal.
        static constexpr char junk[] =
            "\xFF\xFE\0junk\n[S]\nj=1\n=nothing\n[[x]]\n\x01\x02\n]\n[T]\nk=2\n[unclosed";
        const QString path = file(QByteArray(junk, sizeof junk - 1));
        IniFile::setValue(path, "S", "k", "v");
        QCOMPARE(IniFile::value(path, "S", "k"), Value("v"));
        QCOMPARE(IniFile::value(path, "S", "j"), Value("1"));
        QCOMPARE(IniFile::value(path, "T", "k"), Value("2"));
    }
    void a_value_that_fits_one_line_round_trips_data() {
        QTest::addColumn<QByteArray>("value");
        for (const char* value : {"",
                                  "\\data\\lang\\lang_esp.tvl",
                                  "a=b",
                                  "=",
                                  ";not a comment",
                                  "#not a comment",
                                  "\"quoted\"",
                                  "'",
                                  "a  b",
                                  "[x]",
                                  "<<<END",
                                  "<<<",
                                  "%s%n",
                                  "Señor",
                                  "Se\xF1or \xFF",
                                  "\\",
                                  "a\x01z",
                                  "$(touch x)",
                                  "END_OF_TEXT",
                                  "0"}) {
            QTest::newRow(value) << QByteArray(value);
        }
        QTest::newRow("long") << QByteArray(100000, 'x');
    }
    void a_value_that_fits_one_line_round_trips() {
        QFETCH(QByteArray, value);
        const QString path = file("[S]\nj=1\nl=2\n[T]\nk=3\n");
        for (int round = 0; round < 2; ++round) {
            IniFile::setValue(path, "S", "k", value);
            QCOMPARE(IniFile::value(path, "S", "k"), Value(value));
            QCOMPARE(IniFile::value(path, "S", "j"), Value("1"));
            QCOMPARE(IniFile::value(path, "S", "l"), Value("2"));
            QCOMPARE(IniFile::value(path, "T", "k"), Value("3"));
        }
    }
    void what_the_form_can_not_hold_is_refused_and_changes_nothing_data() {
        QTest::addColumn<QByteArray>("section");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("value");
        const QByteArray s = "S";
        const QByteArray k = "k";
        QTest::newRow("line break in the value") << s << k << QByteArray("a\nb=c");
        QTest::newRow("return in the value") << s << k << QByteArray("a\rb");
        QTest::newRow("zero byte in the value") << s << k << QByteArray("a\0b", 3);
        QTest::newRow("blank in front") << s << k << QByteArray(" a");
        QTest::newRow("trailing blank") << s << k << QByteArray("a ");
        QTest::newRow("trailing tab") << s << k << QByteArray("a\t");
        QTest::newRow("sign in the key") << s << QByteArray("a=b") << QByteArray("v");
        QTest::newRow("line break in the key") << s << QByteArray("a\nb") << QByteArray("v");
        QTest::newRow("key like a comment") << s << QByteArray(";a") << QByteArray("v");
        QTest::newRow("key like a section") << s << QByteArray("[a]") << QByteArray("v");
        QTest::newRow("key with blanks around it") << s << QByteArray(" a ") << QByteArray("v");
        QTest::newRow("zero byte in the key") << s << QByteArray("k\0x", 3) << QByteArray("v");
        QTest::newRow("zero byte in the section") << QByteArray("S\0x", 3) << k << QByteArray("v");
        QTest::newRow("empty key") << s << QByteArray() << QByteArray("v");
        QTest::newRow("bracket in the section") << QByteArray("a]b") << k << QByteArray("v");
        QTest::newRow("line break in the section") << QByteArray("a\nb") << k << QByteArray("v");
    }
    void what_the_form_can_not_hold_is_refused_and_changes_nothing() {
        QFETCH(QByteArray, section);
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, value);
        const QByteArray before = "[S]\nk=1\n";
        const QString path = file(before);
        QCOMPARE(failureOf([&] { IniFile::setValue(path, section, key, value); }),
                 number(RuntimeFailure::invalidCall));
        QCOMPARE(content(), before);
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("a.ini")});
    }
    void an_unreadable_file_is_never_overwritten() {
        folder->setMode(QStringLiteral("."), 0777);
        const QString path = file("[S]\nk=1\n");
        folder->setMode(QStringLiteral("a.ini"), 0222);
        {
            const OrdinaryUser user;
            QCOMPARE(failureOf([&] { IniFile::setValue(path, "S", "j", "2"); }),
                     number(RuntimeFailure::permissionDenied));
        }
        folder->setMode(QStringLiteral("a.ini"), 0644);
        QCOMPARE(content(), QByteArray("[S]\nk=1\n"));
        QCOMPARE(mkfifo(folder->native("pipe").constData(), 0666), 0);
        QCOMPARE(failureOf([&] { IniFile::setValue(folder->path(QStringLiteral("pipe")), "S", "j", "2"); }),
                 number(RuntimeFailure::pathAccess));
        QCOMPARE(failureOf([&] { IniFile::setValue(folder->path(), "S", "j", "2"); }),
                 number(RuntimeFailure::pathAccess));
    }
    void a_full_disk_leaves_the_old_file() {
        const QByteArray before = "[S]\nk=1\n";
        const QString path = file(before);
        std::optional<int> failure;
        {
            const FullDisk full(10);
            failure = failureOf([&] { IniFile::setValue(path, "S", "k", "a value that is longer"); });
        }
        QCOMPARE(failure, number(RuntimeFailure::diskFull));
        QCOMPARE(content(), before);
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("a.ini")});
    }
    void any_bytes_are_read_and_changed_without_harm() {
        std::srand(23);
        const QByteArray signs("[]=;#\n\r \t<\"\\kS\0\xFF\xEF\xBB\xBF", 19);
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes(std::rand() % 200, '\0');
            for (char& c : bytes) c = signs[static_cast<qsizetype>(std::rand() % signs.size())];
            const QString path = file(bytes);
            (void)IniFile::value(path, "S", "k");
            if (!failureOf([&] { IniFile::setValue(path, "S", "k", "v"); })) {
                QCOMPARE(IniFile::value(path, "S", "k"), Value("v"));
            } else {
                QCOMPARE(content(), bytes);
            }
        }
    }
};

TORVANE_APPLESS_TEST(IniFileTest)
#include "IniFileTest.moc"

// SPDX-License-Identifier: MIT
// What a translator hears about a language file, and whether the table of captions says what the windows do.
#include "LanguageCheck.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"
#include "support/WholeCaption.h"

#include <QRegularExpression>

using namespace torvane;
using namespace Qt::StringLiterals;

class LanguageCheckTest : public QObject {
    Q_OBJECT

    std::unique_ptr<LanguageCheck> check;
    QByteArray english;

    static QByteArray fileOf(const char* code) {
        QFile file(QStringLiteral(TORVANE_TREE_DIR "/data/lang/lang_%1.tvl").arg(QLatin1String(code)));
        if (!file.open(QIODevice::ReadOnly)) qFatal("no language file");
        return file.readAll();
    }
    QByteArray changed(const QByteArray& line, const QByteArray& now) const {
        const QByteArray whole = '\n' + line + "\r\n";
        if (english.count(whole) != 1) qFatal("%s", line.constData());
        return QByteArray(english).replace(whole, '\n' + (now.isEmpty() ? now : now + "\r\n"));
    }
    QString faults(const QByteArray& bytes) const { return check->faultsOf(bytes).join(u'\n'); }

private slots:
    void initTestCase() {
        initArtResources();
        check = std::make_unique<LanguageCheck>();
        english = fileOf("eng");
    }
    void cleanupTestCase() { check.reset(); }

    void our_own_files_are_complete_and_every_text_fits_data() {
        QTest::addColumn<QByteArray>("code");
        for (const char* code : {"esp", "cat", "eng"}) QTest::newRow(code) << QByteArray(code);
    }
    void our_own_files_are_complete_and_every_text_fits() {
        QFETCH(QByteArray, code);
        QCOMPARE(faults(fileOf(code.constData())), QString());
    }
    void a_missing_text_is_listed() {
        QCOMPARE(faults(changed("report2=Report the bug", "")), u"missing: [About] report2"_s);
        QCOMPARE(faults(changed("report2=Report the bug", "report2=")), u"missing: [About] report2"_s);
    }
    void an_empty_file_lacks_every_text() {
        const QStringList all = check->faultsOf({});
        QVERIFY(all.size() > 250);
        for (const QString& fault : all) QVERIFY(fault.startsWith(u"missing: ["_s));
        QVERIFY(std::is_sorted(all.begin(), all.end()));
    }
    void a_text_that_nobody_asks_for_is_listed_with_its_line() {
        QCOMPARE(faults("; my own\r\n" + changed("report2=Report the bug", "report2=Report it\r\nreport3=x")),
                 u"line 17: surplus: [About] report3"_s);
    }
    void a_second_text_of_a_key_is_listed() {
        QCOMPARE(faults(english + "[About]\r\nREPORT=again\r\n").section(u": "_s, 1),
                 u"a second time: [About] REPORT"_s);
    }
    void of_two_texts_the_last_one_is_measured() {
        const QString all = faults(english + "[About]\r\nreport2=Report the bug to the developers\r\n");
        QVERIFY2(all.contains(u"too long: [About] report2 for ChameleonButton17"_s), qPrintable(all));
    }
    void a_text_with_braces_is_a_text_like_any_other() {
        QCOMPARE(faults(changed("report2=Report the bug", "report2={About/report2}")), QString());
    }
    void a_line_of_two_texts_of_which_one_is_missing_is_not_measured() {
        const QByteArray bytes = changed("langname=English", "langname=" + QByteArray(60, 'W'));
        QVERIFY(faults(bytes).contains(u"too long"_s));
        QCOMPARE(faults(QByteArray(bytes).replace("hisname=Language:", "hisname=")),
                 u"missing: [FileInfo] hisname"_s);
    }
    void a_text_that_is_too_long_is_listed_with_its_place_data() {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("now");
        QTest::addColumn<QString>("fault");
        const auto row = [](const char* name, const char* line, const char* now, const char* fault) {
            QTest::newRow(name) << QByteArray(line) << QByteArray(now) << QString::fromUtf8(fault);
        };
        row("a button", "report2=Report the bug", "report2=Report the bug to the developers",
            "too long: [About] report2 for ChameleonButton17 of Aboutfrm: “Report the bug to the "
            "developers”");
        row("a label", "totalrom=Total ROMs", "totalrom=The number of all the ROMs there are",
            "too long: [MainMenu] totalrom for Label16 of MainFrm: “The number of all the ROMs there are”");
        row("a skin label with what the window adds", "report=Have you found a bug?",
            "report=Have you found a bug, or perhaps two of them?",
            "too long: [About] report for TVLabel1 of Aboutfrm: “Have you found a bug, or perhaps two of "
            "them? "
            "»”");
        row("two texts in one line", "langname=English", "langname=The English of all the kingdoms",
            "too long: [FileInfo] hisname + [FileInfo] langname for TVLabel1 of SelLang: “Language: The "
            "English "
            "of all the kingdoms”");
        row("a box that can be checked", "onlysystem=SYSTEM only",
            "onlysystem=Entries of the kind SYSTEM and no others",
            "too long: [OLDB] onlysystem for Entradas(0) of EditDB: “Entries of the kind SYSTEM and no "
            "others”");
        row("a heading", "Col4=Type", "Col4=The type of the entry",
            "too long: [OLDB] Col4 for ListView1#3 of EditDB: “The type of the entry”");
        row("a text of a page that is not the first",
            "f8=I couldn\x92t copy the game. Press Browse, choose a file and try again.", "f8=A\tB", "");
    }
    void a_text_that_is_too_long_is_listed_with_its_place() {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, now);
        QFETCH(QString, fault);
        QCOMPARE(faults(changed(line, now)), fault);
    }
    void a_file_of_the_wrong_form_is_reported() {
        QVERIFY(faults(QByteArray(english).replace("\r\n", "\n")).contains(u"CR LF"_s));
        QVERIFY(faults(QString::fromLatin1(english).toUtf8()).contains(u"UTF-8"_s));
        QVERIFY(faults(QByteArray(english).replace("\r\n", "\r")).contains(u"CR LF"_s));
        for (const char* line : {"stray", "stray=before any section"}) {
            QVERIFY(faults(QByteArray(line) + "\r\n" + english)
                        .contains(u"line 1: neither a section nor a text: "_s + QLatin1String(line)));
        }
        QVERIFY(faults(english + "=no key\r\n").contains(u": neither a section nor a text: =no key"_s));
    }
    void letters_without_accents_are_of_the_right_form() {
        QVERIFY(!faults("[About]\r\nreport2=Report it\r\n").contains(u"form:"_s));
    }
    void one_letter_that_is_no_utf_8_makes_a_file_one_of_code_page_1252() {
        QVERIFY(faults("[About]\r\nreport2=\xC3\xB1\r\n").contains(u"form:"_s));
        QVERIFY(!faults("[About]\r\nreport2=\xC3\xB1 \xF1\r\n").contains(u"form:"_s));
    }

    // Else no file could have that text without a fault, and its length would never be measured.
    void every_text_in_the_table_of_captions_is_one_that_windows_ask_for() {
        QFile table(QStringLiteral(TORVANE_TESTS_DIR "/tree/language_keys.tsv"));
        QVERIFY(table.open(QIODevice::ReadOnly));
        const QStringList known = QString::fromLatin1(table.readAll()).replace(u'\t', u'/').split(u'\n');
        const QRegularExpression text(u"\\{([^}]+)\\}"_s);
        QStringList unknown;
        int count = 0;
        for (const auto& caption : check->captions()) {
            for (const auto& found : text.globalMatch(caption.words)) {
                if (!known.contains(found.captured(1))) unknown += found.captured(1);
                ++count;
            }
        }
        QCOMPARE(unknown.join(u'\n'), QString());
        QVERIFY(count > 150);
    }
    void a_file_that_the_program_does_not_read_is_reported_as_too_large() {
        const QByteArray comment = ';' + QByteArray(4 * 1024 * 1024 - 3 - english.size(), 'x') + "\r\n";
        QCOMPARE(faults(comment + english), QString());
        QCOMPARE(faults(comment + english + '\n'),
                 u"form: the file is larger than 4 MiB, and the program reads nothing of it"_s);
    }

    // The program in a language whose texts say which they are: what the windows show at first must be what
    // the table says.
    void every_caption_that_a_window_shows_at_first_is_in_the_table() {
        OpenedProgram opened;
        QByteArray marked;
        for (const QByteArray& line : english.split('\n')) {
            const qsizetype equals = line.indexOf('=');
            if (line.startsWith('[')) m_section = line.trimmed().sliced(1).chopped(1);
            marked += equals > 0 ? line.first(equals) + "={" + m_section + '/' + line.first(equals) + "}\r\n"
                                 : line + '\n';
        }
        opened.world.folder.write(u"data/lang/lang_eng.tvl"_s, marked);
        opened.games(1);
        opened.open();
        QSet<QString> known;
        for (const auto& caption : check->captions()) {
            known.insert((caption.window + u'.' + caption.control + u' ' + caption.words).toLower());
        }
        int count = 0;
        QStringList unknown;
        Windows::forEach([&]<typename W>() {
            Form* window = opened.program->load<W>();
            if (window == nullptr) return;
            for (const Control* control : window->findChildren<Control*>()) {
                const QString caption = captionOf(*control);
                if (!caption.contains(u'{') || !control->liesInContainer()) continue;
                const QString row = window->objectName() + u'.' + control->objectName() + u' ' + caption;
                if (!known.contains(row.toLower())) unknown += row;
                ++count;
            }
        });
        unknown.sort();
        QCOMPARE(unknown.join(u'\n'), QString());
        QVERIFY(count > 80);
    }

private:
    static QString captionOf(const Control& control) {
        if (const auto* label = qobject_cast<const Label*>(&control)) {
            return label->isShadow() ? QString() : label->Caption();
        }
        if (const auto* skin = qobject_cast<const TVLabel*>(&control)) return skin->Caption();
        if (const auto* button = qobject_cast<const chameleonButton*>(&control)) return button->Caption();
        if (const auto* toggle = qobject_cast<const ToggleControl*>(&control)) return toggle->Caption();
        return {};
    }

    QByteArray m_section;
};

TORVANE_TEST(LanguageCheckTest)
#include "LanguageCheckTest.moc"

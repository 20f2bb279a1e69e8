// SPDX-License-Identifier: MIT
// The language files of the installed tree, read as bytes by a strict parser of this test's own: what the
// program's tolerant reader would swallow in silence is a fault here. The keys that the windows ask for
// stand in language_keys.tsv, spelled as the windows spell them. Whether a text fits its control on the
// screen is left to the tests of the windows.
#include "support/TestMain.h"

#include <QFile>
#include <QHash>
#include <QSet>
#include <QStringDecoder>
#include <QTest>
#include <algorithm>
#include <array>

namespace torvane {

namespace {
struct Entry {
    int line;
    QByteArray id; // section, "/" and key in lower case: names are compared without regard to case
    QByteArray text;
};

struct Parsed {
    QByteArray bytes;
    QList<Entry> sections; // the id is the section's name
    QList<Entry> keys;
    QStringList strayLines;
};

// Each file with the one that it is compared with: together they make all three pairs.
constexpr std::array<std::array<const char*, 2>, 3> languages = {
    {{"esp", "cat"}, {"cat", "eng"}, {"eng", "esp"}}};

// The texts that are rightly the same in two languages.
const QHash<QString, QStringList> sameByRight = {
    {"esp=cat",
     {"access/previousshot", "config/color5", "config/no", "config/yes", "dialogs/folder", "dialogs/no",
      "dialogs/yes", "globals/nodisp", "mainmenu/maintitle", "ol-db+info/termauthor",
      "ol-db+info/termplatform", "oldb/col5", "oldb/filterauthor", "tooltips/database", "weblist/nodisp"}},
    {"cat=eng", {"config/no", "dialogs/no", "gallery/imgformat", "gallery/imgsize", "tooltips/database"}},
    {"eng=esp", {"config/no", "dialogs/no", "tooltips/database"}},
};

QByteArray idOf(const QByteArray& section, const QByteArray& key) {
    return section.toLower() + '/' + key.toLower();
}

bool isName(const QByteArray& name) {
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '+';
    });
}

// A blank, a tab or the blank that doesn't break.
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\xA0'; }

// Control characters have no place in a text, and five bytes mean nothing in the code page.
bool isForeign(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20) return c != '\r' && c != '\n';
    return byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

QString at(int line, const QByteArray& what) {
    return QString("line %1: %2").arg(line).arg(QString::fromLatin1(what));
}

// Takes in one line without its line end; `section` is the one that the line stands in.
void parseLine(const QByteArray& text, int line, QByteArray& section, Parsed& parsed) {
    const qsizetype equals = text.indexOf('=');
    if (text.isEmpty()) return;
    if (text.startsWith('[') && text.endsWith(']') && isName(text.sliced(1).chopped(1))) {
        section = text.sliced(1).chopped(1);
        parsed.sections.append({line, section.toLower(), {}});
    } else if (!section.isEmpty() && equals > 0 && isName(text.first(equals))) {
        parsed.keys.append({line, idOf(section, text.first(equals)), text.sliced(equals + 1)});
    } else {
        parsed.strayLines.append(at(line, text));
    }
}

Parsed parse(const QByteArray& bytes) {
    Parsed parsed{bytes, {}, {}, {}};
    QByteArray section;
    int line = 0;
    for (QByteArray text : bytes.split('\n')) {
        if (text.endsWith('\r')) text.chop(1);
        parseLine(text, ++line, section, parsed);
    }
    return parsed;
}

// The entries whose name was there before.
QString doubled(const QList<Entry>& entries) {
    QSet<QByteArray> seen;
    QStringList faults;
    for (const Entry& entry : entries) {
        if (seen.contains(entry.id)) faults.append(at(entry.line, entry.id));
        seen.insert(entry.id);
    }
    return faults.join('\n');
}

// The names asked for that no entry bears.
QString missing(const QList<QByteArray>& askedFor, const QList<Entry>& entries) {
    QStringList faults;
    for (const QByteArray& name : askedFor) {
        const auto bears = [&](const Entry& entry) { return entry.id == name; };
        if (std::none_of(entries.begin(), entries.end(), bears)) faults.append(QString::fromLatin1(name));
    }
    return faults.join('\n');
}

// The keys whose entry is at fault.
template <typename Fault>
QString keysWith(const Parsed& file, Fault fault) {
    QStringList faults;
    for (const Entry& entry : file.keys)
        if (fault(entry)) faults.append(at(entry.line, entry.id + '=' + entry.text));
    return faults.join('\n');
}

QByteArray textOf(const Parsed& file, const QByteArray& id) {
    const auto found =
        std::find_if(file.keys.begin(), file.keys.end(), [&](const Entry& e) { return e.id == id; });
    return found == file.keys.end() ? QByteArray() : found->text;
}

// The ids whose text is the same, byte for byte, in both files.
QString sameTexts(const Parsed& one, const Parsed& other) {
    QStringList ids;
    for (const Entry& entry : one.keys)
        if (entry.text == textOf(other, entry.id)) ids.append(QString::fromLatin1(entry.id));
    ids.sort();
    return ids.join('\n');
}
} // namespace

class LanguageFilesTest : public QObject {
    Q_OBJECT

    QHash<QString, Parsed> files;
    QList<QByteArray> sectionsAskedFor;
    QList<QByteArray> keysAskedFor;

    const Parsed& file() {
        QFETCH_GLOBAL(QString, language);
        return *files.constFind(language);
    }

private slots:
    void initTestCase_data() {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("other");
        for (const auto& [language, other] : languages) QTest::newRow(language) << language << other;
    }

    void initTestCase() {
        for (const auto& [language, other] : languages) {
            QFile file(QString(TORVANE_TREE_DIR "/data/lang/lang_%1.tvl").arg(language));
            QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
            files.insert(language, parse(file.readAll()));
        }
        QFile table(TORVANE_TESTS_DIR "/tree/language_keys.tsv");
        QVERIFY2(table.open(QIODevice::ReadOnly), qPrintable(table.fileName()));
        for (const QByteArray& row : table.readAll().trimmed().split('\n')) {
            const QList<QByteArray> cells = row.split('\t');
            QCOMPARE(cells.size(), 2);
            if (!sectionsAskedFor.contains(cells[0].toLower())) sectionsAskedFor.append(cells[0].toLower());
            keysAskedFor.append(idOf(cells[0], cells[1]));
        }
    }

    void every_line_ends_in_cr_lf() {
        const QByteArray& bytes = file().bytes;
        QVERIFY(bytes.endsWith("\r\n"));
        QCOMPARE(bytes.count("\r\n"), bytes.count('\n'));
        QCOMPARE(bytes.count("\r\n"), bytes.count('\r'));
    }

    void every_byte_is_a_character_of_code_page_1252() {
        QStringList faults;
        for (qsizetype i = 0; i < file().bytes.size(); ++i)
            if (isForeign(file().bytes[i])) faults.append(QString("byte %1").arg(i));
        QCOMPARE(faults.join(' '), QString());
    }

    void accents_are_not_written_in_utf_8() {
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString asUtf8 = utf8(file().bytes);
        QVERIFY(utf8.hasError() || asUtf8.size() == file().bytes.size());
    }

    void every_line_is_a_section_or_a_key_or_empty() { QCOMPARE(file().strayLines.join('\n'), QString()); }

    void no_section_stands_twice() { QCOMPARE(doubled(file().sections), QString()); }

    void no_key_stands_twice_in_its_section() { QCOMPARE(doubled(file().keys), QString()); }

    void every_section_that_a_window_asks_for_is_there() {
        QCOMPARE(missing(sectionsAskedFor, file().sections), QString());
    }

    void every_key_that_a_window_asks_for_is_there() {
        QCOMPARE(missing(keysAskedFor, file().keys), QString());
    }

    void no_key_is_there_that_nobody_asks_for() {
        QCOMPARE(keysWith(file(), [&](const Entry& e) { return !keysAskedFor.contains(e.id); }), QString());
    }

    void no_text_is_empty() {
        QCOMPARE(keysWith(file(), [](const Entry& e) { return e.text.trimmed().isEmpty(); }), QString());
    }

    void no_text_has_blanks_around_it() {
        const auto padded = [](const Entry& e) {
            return !e.text.isEmpty() && (isBlank(e.text.front()) || isBlank(e.text.back()));
        };
        QCOMPARE(keysWith(file(), padded), QString());
    }

    void every_text_is_translated() {
        QFETCH_GLOBAL(QString, language);
        QFETCH_GLOBAL(QString, other);
        QCOMPARE(sameTexts(file(), *files.constFind(other)),
                 sameByRight.value(language + '=' + other).join('\n'));
    }

    // The windows add the sign "»" after these texts by themselves.
    void no_text_brings_the_sign_that_its_window_appends() {
        for (const char* id : {"about/report", "mainmenu/editid3", "mainmenu/gamelist", "mainmenu/listupdate",
                               "mainmenu/search", "mainmenu/zipnav"})
            QVERIFY2(!textOf(file(), id).contains('\xBB'), id);
    }

    // The assistant offers this text as the name of a file that doesn't exist, and cuts the path at it.
    void the_stand_in_for_a_folder_can_be_a_file_name() {
        const QByteArray name = textOf(file(), "assistant/f13");
        QVERIFY(std::none_of(name.begin(), name.end(),
                             [](char c) { return QByteArray("\\/:*?\"<>|").contains(c); }));
    }

    // The compact window compares with these very words, whatever the language.
    void the_spanish_text_for_what_is_not_known_is_the_one_that_the_program_knows() {
        QCOMPARE(textOf(*files.constFind("esp"), "globals/nodisp"), QByteArray("No disponible"));
    }
};

} // namespace torvane

using torvane::LanguageFilesTest;
TORVANE_APPLESS_TEST(LanguageFilesTest)
#include "LanguageFilesTest.moc"

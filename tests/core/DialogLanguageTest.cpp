// SPDX-License-Identifier: MIT
// The language of dialogs by the language file: its own word for it, else its name.
#include "core/DialogLanguage.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;

class DialogLanguageTest : public QObject {
    Q_OBJECT

    TestFolder folder;
    Globals globals;
    LanguageTables tables{globals};
    const DialogLanguage language{globals, tables};

private slots:
    void the_programs_own_files_have_their_languages_data() {
        QTest::addColumn<QString>("locale");
        QTest::newRow("esp") << QStringLiteral("es");
        QTest::newRow("cat") << QStringLiteral("ca");
        QTest::newRow("eng") << QStringLiteral("en");
    }
    void the_programs_own_files_have_their_languages() {
        QFETCH(QString, locale);
        globals.LanguageFile = QStringLiteral(TORVANE_TREE_DIR "\\data\\lang\\lang_%1.tvl")
                                   .arg(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(language.locale(), locale);
        QVERIFY(!language.text("folder").isEmpty());
    }
    void a_file_without_the_key_goes_by_its_name_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("locale");
        QTest::newRow("Spanish") << QStringLiteral("lang_esp.tvl") << QStringLiteral("es");
        QTest::newRow("Catalan in capitals") << QStringLiteral("LANG_CAT.TVL") << QStringLiteral("ca");
        QTest::newRow("English") << QStringLiteral("lang_eng.tvl") << QStringLiteral("en");
        QTest::newRow("a user's") << QStringLiteral("lang_gal.tvl") << QStringLiteral("en");
        QTest::newRow("missing") << QString() << QStringLiteral("en");
    }
    void a_file_without_the_key_goes_by_its_name() {
        QFETCH(QString, name);
        QFETCH(QString, locale);
        if (!name.isEmpty()) folder.write(name, "[FileInfo]\r\nlangname=x\r\n");
        globals.LanguageFile = name.isEmpty() ? QString() : folder.path() + QLatin1Char('\\') + name;
        QCOMPARE(language.locale(), locale);
        QCOMPARE(language.text("yes"), QString());
    }
    void the_key_counts_more_than_the_name() {
        globals.LanguageFile = folder.write(QStringLiteral("lang_esp.tvl"),
                                            "[fileinfo]\r\nlocale=gl\r\n[Dialogs]\r\nyes=&Si\r\n");
        QCOMPARE(language.locale(), QStringLiteral("gl"));
        QCOMPARE(language.text("yes"), QStringLiteral("&Si"));
    }
};

TORVANE_APPLESS_TEST(DialogLanguageTest)
#include "DialogLanguageTest.moc"

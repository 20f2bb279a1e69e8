// SPDX-License-Identifier: MIT
// The settings store: what is kept apart, what round-trips, and what is read as a number.
#include "platform/base/Settings.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

#include <random>
#include <sys/wait.h>

using namespace torvane;

namespace {
const QString app = QStringLiteral("Torvane");
const QString config = QStringLiteral("Config");
const QString absent = QStringLiteral("(absent)");
} // namespace

class SettingsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<Settings> settings;

    QString get(const QString& key) const { return settings->GetSetting(app, config, key, absent); }
    QString get(const char* key) const { return get(QString::fromLatin1(key)); }
    void set(const char* key, const QString& value) {
        settings->SaveSetting(app, config, QString::fromLatin1(key), value);
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        settings = std::make_unique<Settings>(folder->path(QStringLiteral("config")));
    }

    void an_empty_store_gives_the_reader_s_default_and_makes_no_file() {
        QCOMPARE(get("Language"), absent);
        QCOMPARE(settings->GetSetting(app, config, QStringLiteral("Language"), QString()), QString());
        const QString emulator =
            QStringLiteral("VisualBoy Advance 1.0a") + QString(100, QLatin1Char(' ')) + QLatin1Char('0');
        QCOMPARE(settings->GetSetting(app, config, QStringLiteral("Emulador"), emulator), emulator);
        QVERIFY(folder->entries().isEmpty());
    }
    void the_default_applies_only_to_an_absent_key() {
        set("Language", QString());
        QCOMPARE(get("Language"), QString());
    }
    void another_store_of_the_same_folder_sees_a_saved_value_at_once() {
        set("Intro", QStringLiteral("0"));
        QCOMPARE(Settings(folder->path(QStringLiteral("config")))
                     .GetSetting(app, config, QStringLiteral("Intro"), absent),
                 QStringLiteral("0"));
        set("Intro", QStringLiteral("1"));
        QCOMPARE(get("Intro"), QStringLiteral("1"));
    }
    void several_values_are_stored_at_once_or_not_at_all() {
        set("Old", QStringLiteral("1"));
        settings->SaveSettings(app, config,
                               {{QStringLiteral("Old"), QStringLiteral("2")},
                                {QStringLiteral("New"), QStringLiteral(" a\nb ")}});
        QCOMPARE(get("Old"), QStringLiteral("2"));
        QCOMPARE(get("New"), QStringLiteral(" a\nb "));
        const QString impossible = QStringLiteral("a=b");
        QVERIFY(failureOf([&] {
                    settings->SaveSettings(
                        app, config,
                        {{QStringLiteral("Old"), QStringLiteral("3")}, {impossible, QStringLiteral("4")}});
                }).has_value());
        QCOMPARE(get("Old"), QStringLiteral("2"));
    }
    void what_is_stored_already_is_not_written_again() {
        folder->write(QStringLiteral("config/Torvane/Torvane.conf"), "[config]\r\nzip=1\r\n\r\n; mine");
        set("zip", QStringLiteral("1"));
        settings->SaveSettings(app, config, {});
        QCOMPARE(folder->read(QStringLiteral("config/Torvane/Torvane.conf")),
                 QByteArray("[config]\r\nzip=1\r\n\r\n; mine"));
    }
    void application_section_and_key_are_compared_without_regard_to_case() {
        set("zip", QStringLiteral("1"));
        QCOMPARE(settings->GetSetting(QStringLiteral("TORVANE"), QStringLiteral("config"),
                                      QStringLiteral("ZIP"), absent),
                 QStringLiteral("1"));
        settings->SaveSetting(QStringLiteral("torvane"), QStringLiteral("CONFIG"), QStringLiteral("Zip"),
                              QStringLiteral("0"));
        QCOMPARE(get("zip"), QStringLiteral("0"));
        QCOMPARE(folder->entries(QStringLiteral("config")), QStringList{app});
        QCOMPARE(folder->read(QStringLiteral("config/Torvane/Torvane.conf")).toLower().count("zip"), 1);
    }
    void applications_sections_and_keys_are_kept_apart() {
        set("Icon", QStringLiteral("1"));
        settings->SaveSetting(QStringLiteral("Other"), config, QStringLiteral("Icon"), QStringLiteral("2"));
        settings->SaveSetting(app, QStringLiteral("Other"), QStringLiteral("Icon"), QStringLiteral("3"));
        set("Icon2", QStringLiteral("4"));
        QCOMPARE(get("Icon"), QStringLiteral("1"));
        QCOMPARE(settings->GetSetting(QStringLiteral("Other"), config, QStringLiteral("Icon"), absent),
                 QStringLiteral("2"));
        QCOMPARE(settings->GetSetting(app, QStringLiteral("Other"), QStringLiteral("Icon"), absent),
                 QStringLiteral("3"));
        QCOMPARE(get("Icon2"), QStringLiteral("4"));
    }
    void an_application_s_name_never_leads_to_another_folder_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"../up", "..\\up", "a/b", "/etc", "..", ".", ""})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void an_application_s_name_never_leads_to_another_folder() {
        QFETCH(QString, name);
        settings->SaveSetting(name, config, QStringLiteral("k"), QStringLiteral("v"));
        QCOMPARE(settings->GetSetting(name, config, QStringLiteral("k"), absent), QStringLiteral("v"));
        QCOMPARE(folder->entries(), QStringList{QStringLiteral("config")});
        QCOMPARE(folder->entries(QStringLiteral("config")).size(), 1);
    }
    void the_file_is_torvane_conf_in_the_configuration_folder() {
        QCOMPARE(settings->fileOf(app), folder->path(QStringLiteral("config/Torvane/Torvane.conf")));
        set("Mini", QStringLiteral("1"));
        QVERIFY(QFile::exists(settings->fileOf(app)));
    }
    void a_backslash_in_the_configuration_folder_is_part_of_its_name() {
        QVERIFY(QDir().mkpath(folder->path(QStringLiteral("back\\slash"))));
        Settings strange(folder->path(QStringLiteral("back\\slash")));
        strange.SaveSetting(app, config, QStringLiteral("k"), QStringLiteral("v"));
        QVERIFY(QFile::exists(folder->path(QStringLiteral("back\\slash/Torvane/Torvane.conf"))));
        QCOMPARE(strange.GetSetting(app, config, QStringLiteral("k"), absent), QStringLiteral("v"));
    }
    void any_text_round_trips_data() {
        QTest::addColumn<QString>("value");
        for (const char* text : {"",
                                 " ",
                                 "  ",
                                 " outer blanks ",
                                 "\ttab\t",
                                 "a=b",
                                 "=",
                                 "; no comment",
                                 "#no comment",
                                 "\"quoted\"",
                                 "\"",
                                 "'",
                                 "[x]",
                                 "line\nbreak",
                                 "\n",
                                 "\r",
                                 "a\r\nb\r\n",
                                 "\n[Config]\nIntro=9",
                                 "<<<END",
                                 "a\nEND_OF_TEXT\nb",
                                 "%",
                                 "%%",
                                 "%41",
                                 "%zz",
                                 "50% a",
                                 "%250",
                                 "%s%n",
                                 "\\",
                                 "C:\\",
                                 "\\\\",
                                 "/home/user/%20/x",
                                 "Señor – 😀",
                                 "\x7F",
                                 "$(touch x)",
                                 "\uFEFFmark"}) {
            QTest::newRow(text) << QString::fromUtf8(text);
        }
        QTest::newRow("zero") << QString(QChar(0));
        QTest::newRow("half a pair that escapes a byte") << QStringLiteral("/home/no utf8 ") + QChar(0xDCF1);
        // The second half of this character is the unit that escapes a backslash inside a name.
        QTest::newRow("handbag") << QStringLiteral("/home/\U0001F45C\\\U0001F45C%5C") + QChar(0xDC5C);
        QTest::newRow("backslash inside of a name")
            << QStringLiteral("\\data\\a") + QChar(0xDC5C) + QStringLiteral("b");
        QTest::newRow("long") << QString(100000, QLatin1Char('x'));
    }
    void any_text_round_trips() {
        QFETCH(QString, value);
        set("Intro", QStringLiteral("1"));
        set("Capturas", value);
        set("Tray", QStringLiteral("0"));
        QCOMPARE(get("Capturas"), value);
        QCOMPARE(get("Intro"), QStringLiteral("1"));
        QCOMPARE(get("Tray"), QStringLiteral("0"));
    }
    void random_texts_round_trip() {
        std::mt19937 random(29);
        const QString signs = QStringLiteral("%0aAfF \\/\n\r=;#[]<\"xñ");
        for (int round = 0; round < 200; ++round) {
            QString value;
            for (auto n = random() % 14; n > 0; --n)
                value += signs[static_cast<qsizetype>(random() % signs.size())];
            set("Capturas", value);
            QCOMPARE(get("Capturas"), value);
        }
    }
    void a_path_is_stored_as_the_program_spells_it() {
        set("Language", QStringLiteral("/opt/Torvane 100%\\data\\lang\\lang_esp.tvl"));
        QVERIFY(folder->read(QStringLiteral("config/Torvane/Torvane.conf"))
                    .contains("/opt/Torvane 100%\\data\\lang\\lang_esp.tvl\n"));
    }
    void a_handwritten_file_is_read_and_its_comments_stay() {
        folder->write(QStringLiteral("config/Torvane/Torvane.conf"),
                      "; mine\r\n\r\njunk\r\n[config]\r\n# why\r\nINTRO = 0\r\nStart=1");
        QCOMPARE(get("Intro"), QStringLiteral("0"));
        set("Start", QStringLiteral("0"));
        const QByteArray bytes = folder->read(QStringLiteral("config/Torvane/Torvane.conf"));
        QVERIFY(bytes.contains("; mine") && bytes.contains("# why"));
        QCOMPARE(get("Intro"), QStringLiteral("0"));
        QCOMPARE(get("Start"), QStringLiteral("0"));
    }
    void an_unreadable_file_counts_as_empty_and_is_not_overwritten() {
        folder->write(QStringLiteral("config/Torvane/Torvane.conf"), "[Config]\nIntro=0\n");
        folder->setMode(QStringLiteral("config/Torvane"), 0777);
        folder->setMode(QStringLiteral("config/Torvane/Torvane.conf"), 0);
        {
            const OrdinaryUser user;
            QCOMPARE(get("Intro"), absent);
            QCOMPARE(failureOf([&] { set("Start", QStringLiteral("1")); }),
                     number(RuntimeFailure::permissionDenied));
        }
        folder->setMode(QStringLiteral("config/Torvane/Torvane.conf"), 0644);
        QCOMPARE(get("Intro"), QStringLiteral("0"));
    }
    void a_failure_to_store_is_reported() {
        folder->write(QStringLiteral("config"), "a file instead of the folder");
        QVERIFY(failureOf([&] { set("Start", QStringLiteral("1")); }).has_value());
        folder->makeFolder(QStringLiteral("shut"));
        folder->setMode(QStringLiteral("shut"), 0555);
        Settings shut(folder->path(QStringLiteral("shut/config")));
        {
            const OrdinaryUser user;
            QCOMPARE(failureOf([&] { shut.SaveSetting(app, config, QStringLiteral("k"), absent); }),
                     number(RuntimeFailure::permissionDenied));
        }
        folder->setMode(QStringLiteral("shut"), 0755);
    }
    void who_has_no_folder_for_settings_can_store_none() {
        Settings none{QString()};
        QCOMPARE(none.GetSetting(app, config, QStringLiteral("k"), absent), absent);
        QCOMPARE(failureOf([&] { none.SaveSetting(app, config, QStringLiteral("k"), QStringLiteral("1")); }),
                 number(RuntimeFailure::pathNotFound));
        QCOMPARE(failureOf([&] { none.requireStorable(app); }), number(RuntimeFailure::pathNotFound));
        none.keepWhatFails();
        none.SaveSetting(app, config, QStringLiteral("k"), QStringLiteral("1"));
        QCOMPARE(none.GetSetting(app, config, QStringLiteral("k"), absent), QStringLiteral("1"));
        QVERIFY(!QFileInfo::exists(QLatin1Char('/') + app));
    }
    void missing_folders_are_made_for_the_user_alone() {
        Settings fresh(folder->path(QStringLiteral("home/config")));
        fresh.SaveSetting(app, config, QStringLiteral("k"), QStringLiteral("1"));
        for (const char* made : {"home", "home/config", "home/config/Torvane"}) {
            struct stat info {};
            QCOMPARE(stat(folder->native(made).constData(), &info), 0);
            QCOMPARE(info.st_mode & 07777, mode_t(0700));
        }
    }
    void a_kill_during_a_save_loses_nothing() {
        set("Language", QStringLiteral("kept"));
        set("Capturas", QStringLiteral("0"));
        std::mt19937 random(31);
        for (int round = 0; round < 30; ++round) {
            const pid_t child = fork();
            if (child == 0) {
                for (int i = 0;; ++i) set("Capturas", QString::number(i).repeated(1000));
            }
            QVERIFY(child > 0);
            usleep(static_cast<useconds_t>(500 + random() % 8000));
            QCOMPARE(kill(child, SIGKILL), 0);
            QCOMPARE(waitpid(child, nullptr, 0), child);
            QCOMPARE(get("Language"), QStringLiteral("kept"));
            const QString now = get("Capturas");
            QVERIFY(now == QStringLiteral("0") ||
                    (now.size() % 1000 == 0 && now == now.left(now.size() / 1000).repeated(1000)));
        }
    }

    void a_text_is_a_number_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        const auto row = [](const char* text, int expected) {
            QTest::newRow(text) << QString::fromLatin1(text) << expected;
        };
        row("0", 0);
        row("-1", -1);
        row(" 6 ", 6);
        row("007", 7);
        row("2.5", 2);
        row("1e3", 1000);
        row("2147483647", std::numeric_limits<int>::max());
    }
    void a_text_is_a_number() {
        QFETCH(QString, text);
        QFETCH(int, expected);
        QCOMPARE(Settings::toNumber(text), expected);
    }
    void a_text_that_is_not_a_number_is_a_type_mismatch_data() {
        QTest::addColumn<QString>("text");
        for (const char* text : {"", " ", "a", "inf", "1,5", "yes", "True", "true", "FALSE", "١"}) {
            QTest::newRow(text) << QString::fromUtf8(text);
        }
    }
    void a_text_that_is_not_a_number_is_a_type_mismatch() {
        QFETCH(QString, text);
        QCOMPARE(failureOf([&] { (void)Settings::toNumber(text); }), number(RuntimeFailure::typeMismatch));
    }
    void a_number_outside_32_bits_is_an_overflow() {
        QCOMPARE(failureOf([&] { (void)Settings::toNumber(QStringLiteral("2147483648")); }),
                 number(RuntimeFailure::overflow));
    }
    void a_flag_is_true_or_false_in_letters_or_in_a_number_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char* text, bool expected) {
            QTest::newRow(text) << QString::fromLatin1(text) << expected;
        };
        row("True", true);
        row("true", true);
        row("FALSE", false);
        row("1", true);
        row("-1", true);
        row(" 2 ", true);
        row("0", false);
        row("0.5", false);
        row("0.6", true);
    }
    void a_flag_is_true_or_false_in_letters_or_in_a_number() {
        QFETCH(QString, text);
        QFETCH(bool, expected);
        QCOMPARE(Settings::toFlag(text), expected);
    }
    void a_text_that_is_not_a_flag_fails_as_a_number_does() {
        for (const char* text : {"", "yes", "Truth", "T", " True"}) {
            QCOMPARE(failureOf([&] { (void)Settings::toFlag(QString::fromLatin1(text)); }),
                     number(RuntimeFailure::typeMismatch));
        }
        QCOMPARE(failureOf([&] { (void)Settings::toFlag(QStringLiteral("1e300")); }),
                 number(RuntimeFailure::overflow));
    }

    // A folder that can't be made
    void settings_that_can_be_stored_are_no_failure() {
        settings->requireStorable(app);
        QVERIFY(QFileInfo(folder->path(QStringLiteral("config/Torvane"))).isDir());
    }
    void settings_that_cannot_be_stored_are_a_failure() {
        folder->write(QStringLiteral("config"), "");
        QVERIFY(failureOf([&] { settings->requireStorable(app); }));
    }
    void what_fails_can_be_kept_until_the_end() {
        folder->write(QStringLiteral("config"), "");
        QVERIFY(failureOf([&] { set("Icon", QStringLiteral("5")); }));
        settings->keepWhatFails();
        set("Icon", QStringLiteral("5"));
        QCOMPARE(get("ICON"), QStringLiteral("5"));
        QCOMPARE(settings->GetSetting(QStringLiteral("torvane"), QStringLiteral("config"),
                                      QStringLiteral("icon"), absent),
                 QStringLiteral("5"));
        QCOMPARE(get("Start"), absent);
    }
    void what_is_stored_at_last_is_read_from_the_store_again() {
        folder->write(QStringLiteral("config"), "");
        settings->keepWhatFails();
        set("Icon", QStringLiteral("5"));
        QVERIFY(QFile::remove(folder->path(QStringLiteral("config"))));
        set("Icon", QStringLiteral("6"));
        QVERIFY(QFile::remove(settings->fileOf(app)));
        QCOMPARE(get("Icon"), absent);
    }
};

TORVANE_APPLESS_TEST(SettingsTest)
#include "SettingsTest.moc"

// SPDX-License-Identifier: MIT
// Typed settings: defaults, conversions, failures, and what is stored.
#include "core/SettingValues.h"
#include "core/Globals.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

using namespace torvane;

class SettingValuesTest : public FileFixture {
    Q_OBJECT

    std::unique_ptr<Settings> settings;

    void store(const char* key, const QString& text) {
        settings->SaveSetting(Config::application, Config::section, QString::fromLatin1(key), text);
    }
    QString stored(const char* key) {
        return settings->GetSetting(Config::application, Config::section, QString::fromLatin1(key),
                                    QStringLiteral("(absent)"));
    }

private slots:
    void init() {
        renewFolder();
        settings = std::make_unique<Settings>(folder->path());
    }

    void an_absent_setting_has_its_default() {
        QCOMPARE(NumberSetting(*settings, "Intro", 1).value(), 1);
        QCOMPARE(NumberSetting(*settings, "Start", -7).value(), -7);
        QCOMPARE(ByteSetting(*settings, "Mini", 255).value(), quint8(255));
        QCOMPARE(FlagSetting(*settings, "Tray", true).value(), true);
        QCOMPARE(FlagSetting(*settings, "Tray", false).value(), false);
        QCOMPARE(TextSetting(*settings, "Capturas", QStringLiteral("C:\\")).value(), QStringLiteral("C:\\"));
        QVERIFY(folder->entries().isEmpty());
    }
    void a_key_without_text_is_not_absent() {
        for (const char* key : {"Intro", "Mini", "Tray", "Capturas"}) store(key, {});
        const NumberSetting intro{*settings, "Intro", 1};
        const ByteSetting mini{*settings, "Mini", 1};
        const FlagSetting tray{*settings, "Tray", true};
        QCOMPARE(failureOf([&] { (void)intro.value(); }), number(RuntimeFailure::typeMismatch));
        QCOMPARE(failureOf([&] { (void)mini.value(); }), number(RuntimeFailure::typeMismatch));
        QCOMPARE(failureOf([&] { (void)tray.value(); }), number(RuntimeFailure::typeMismatch));
        QCOMPARE(TextSetting(*settings, "Capturas", QStringLiteral("x")).value(), QString());
    }
    void true_is_a_flag_and_no_number() {
        for (const char* key : {"Intro", "Mini", "Tray"}) store(key, QStringLiteral("True"));
        QCOMPARE(failureOf([&] { (void)NumberSetting(*settings, "Intro", 1).value(); }),
                 number(RuntimeFailure::typeMismatch));
        QCOMPARE(failureOf([&] { (void)ByteSetting(*settings, "Mini", 1).value(); }),
                 number(RuntimeFailure::typeMismatch));
        QCOMPARE(FlagSetting(*settings, "Tray", false).value(), true);
    }
    void numbers_are_rounded_half_to_even() {
        store("Intro", QStringLiteral("2.5"));
        QCOMPARE(NumberSetting(*settings, "Intro", 1).value(), 2);
        QCOMPARE(ByteSetting(*settings, "Intro", 1).value(), quint8(2));
    }
    void a_number_that_the_type_cannot_hold_is_an_overflow() {
        const NumberSetting asNumber{*settings, "Mini", 1};
        const ByteSetting asByte{*settings, "Mini", 1};
        for (const char* text : {"256", "-1", "255.5", "2147483647"}) {
            store("Mini", QString::fromLatin1(text));
            QCOMPARE(failureOf([&] { (void)asByte.value(); }), number(RuntimeFailure::overflow));
            QCOMPARE(failureOf([&] { (void)asNumber.value(); }), nothing);
        }
        store("Mini", QStringLiteral("2147483648"));
        QCOMPARE(failureOf([&] { (void)asNumber.value(); }), number(RuntimeFailure::overflow));
        for (const char* text : {"255", "255.4", "-0.5"}) {
            store("Mini", QString::fromLatin1(text));
            QCOMPARE(failureOf([&] { (void)asByte.value(); }), nothing);
        }
    }
    void a_value_is_stored_at_once_as_plain_text() {
        NumberSetting(*settings, "Intro", 1).set(-3);
        ByteSetting(*settings, "Mini", 1).set(200);
        FlagSetting(*settings, "Tray", true).set(false);
        FlagSetting(*settings, "OnTop", false).set(true);
        TextSetting(*settings, "Capturas", {}).set(QStringLiteral("\\shots\\"));
        QCOMPARE(stored("intro"), QStringLiteral("-3"));
        QCOMPARE(stored("mini"), QStringLiteral("200"));
        QCOMPARE(stored("tray"), QStringLiteral("0"));
        QCOMPARE(stored("ontop"), QStringLiteral("1"));
        QCOMPARE(stored("capturas"), QStringLiteral("\\shots\\"));
    }
    void a_handle_reads_the_stored_value_each_time() {
        const NumberSetting start{*settings, "Start", 0};
        QCOMPARE(start.value(), 0);
        store("Start", QStringLiteral("1"));
        QCOMPARE(start.value(), 1);
        start.set(2);
        QCOMPARE(start.value(), 2);
    }
};

TORVANE_APPLESS_TEST(SettingValuesTest)
#include "SettingValuesTest.moc"

// SPDX-License-Identifier: MIT
// The general options in the store: what counts as their value, and when something is written.
#include "settings/GeneralOptions.h"
#include "support/Failing.h"
#include "support/TestFolder.h"
#include "support/TestMain.h"

using namespace torvane;
using namespace Qt::StringLiterals;

using Options = GeneralOptions;

class GeneralOptionsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<Settings> settings;

    static constexpr auto file = "config/Torvane/Torvane.conf";
    QByteArray bytes() const { return folder->read(QLatin1String(file)); }
    QString setting(const char* key) const {
        return settings->GetSetting(u"Torvane"_s, u"Config"_s, QLatin1String(key), u"(absent)"_s);
    }
    QStringList stored() const {
        QStringList values;
        for (const GeneralOption& option : Options::all) values += setting(option.key);
        return values;
    }

private slots:
    void init() {
        folder = std::make_unique<TestFolder>();
        settings = std::make_unique<Settings>(folder->path(u"config"_s));
    }

    void an_option_that_was_never_stored_has_its_default() {
        const Options options(*settings);
        QCOMPARE(options.value(Options::tray), 1);
        QCOMPARE(options.value(Options::colour), 0);
        QCOMPARE(options.value(Options::corner), 1);
        QCOMPARE(options.value(Options::onTop), 0);
        QCOMPARE(options.value(Options::intro), 1);
        QCOMPARE(options.value(Options::compact), 0);
        QCOMPARE(options.value(Options::archives), 0);
        QVERIFY(!QFile::exists(folder->path(QLatin1String(file))));
    }
    void a_stored_value_that_the_control_cannot_take_counts_as_the_default_data() {
        QTest::addColumn<QString>("stored");
        for (const char* text : {"", "yes", "-1", "7", "255", "256", "99999999999", "1e99", "0x1", "inf",
                                 "nan", "1,0", "<b>1</b>", "1 0"}) {
            QTest::newRow(text) << QString::fromLatin1(text);
        }
        QTest::newRow("a thousand digits") << QString(1000, u'9');
    }
    void a_stored_value_that_the_control_cannot_take_counts_as_the_default() {
        QFETCH(QString, stored);
        for (const GeneralOption& option : Options::all) {
            QCOMPARE(Options::valueOf(option, stored), option.absent);
        }
    }
    void every_value_of_the_control_is_taken() {
        for (const GeneralOption& option : Options::all) {
            for (int value = 0; value <= option.most; ++value) {
                QCOMPARE(Options::valueOf(option, QString::number(value)), value);
            }
            QCOMPARE(Options::valueOf(option, QString::number(option.most + 1)), option.absent);
        }
        QCOMPARE(Options::colour.most, 6);
    }
    void a_number_in_another_form_is_the_same_number() {
        QCOMPARE(Options::valueOf(Options::colour, u" 3 "_s), 3);
        QCOMPARE(Options::valueOf(Options::colour, u"2.6"_s), 3);
        QCOMPARE(Options::valueOf(Options::onTop, u"+1"_s), 1);
    }
    void tray_may_hold_true_or_false_in_any_case_and_no_other_option_may() {
        QCOMPARE(Options::valueOf(Options::tray, u"False"_s), 0);
        QCOMPARE(Options::valueOf(Options::tray, u"FALSE"_s), 0);
        QCOMPARE(Options::valueOf(Options::tray, u"True"_s), 1);
        QCOMPARE(Options::valueOf(Options::intro, u"False"_s), 1);
        QCOMPARE(Options::valueOf(Options::onTop, u"True"_s), 0);
    }

    void storing_all_stores_the_defaults_of_an_empty_store() {
        Options(*settings).storeAll();
        QCOMPARE(stored(), (QStringList{u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s}));
        QCOMPARE(bytes().count('\n'), 8);
    }
    void storing_all_keeps_other_settings_and_stores_plain_numbers() {
        folder->write(
            QLatin1String(file),
            "; mine\n[Config]\nLanguage = C:\\x.tvl\nTray = False\nIcon = red\nMini = 0\nOther = 5\n");
        Options(*settings).storeAll();
        QCOMPARE(stored(), (QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s}));
        QCOMPARE(setting("Language"), u"C:\\x.tvl"_s);
        QCOMPARE(setting("Other"), u"5"_s);
        QVERIFY(bytes().contains("; mine"));
    }
    void storing_all_again_writes_nothing() {
        Options(*settings).storeAll();
        struct stat before {};
        QCOMPARE(stat(folder->native(file), &before), 0);
        Options(*settings).storeAll();
        Options(*settings).set(Options::intro, 1);
        struct stat after {};
        QCOMPARE(stat(folder->native(file), &after), 0);
        QCOMPARE(after.st_ino, before.st_ino);
        QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    }
    void storing_all_over_a_store_that_cannot_be_read_fails_and_overwrites_nothing() {
        folder->write(QLatin1String(file), "[Config]\nIcon = 3\nMini = 0\n");
        folder->setMode(u"config/Torvane"_s, 0777);
        folder->setMode(QLatin1String(file), 0222);
        {
            const OrdinaryUser user;
            QVERIFY(failureOf([&] { Options(*settings).storeAll(); }).has_value());
        }
        QCOMPARE(bytes(), "[Config]\nIcon = 3\nMini = 0\n"_ba);
    }
    void storing_all_on_a_full_disk_stores_none_and_loses_nothing_data() {
        QTest::addColumn<int>("room");
        for (const int room : {0, 1, 60}) QTest::addRow("%d bytes", room) << room;
    }
    void storing_all_on_a_full_disk_stores_none_and_loses_nothing() {
        QFETCH(int, room);
        const QByteArray old = "[Config]\nLanguage = " + QByteArray(100, 'l') + "\nIcon = 3\n";
        folder->write(QLatin1String(file), old);
        {
            const FullDisk full(static_cast<rlim_t>(room));
            QVERIFY(failureOf([&] { Options(*settings).storeAll(); }).has_value());
        }
        QCOMPARE(bytes(), old);
        QCOMPARE(folder->entries(u"config/Torvane"_s), QStringList{u"Torvane.conf"_s});
    }
};

TORVANE_APPLESS_TEST(GeneralOptionsTest)
#include "GeneralOptionsTest.moc"

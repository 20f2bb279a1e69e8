// SPDX-License-Identifier: MIT
// A number that is remembered of a file's content is forgotten as soon as anybody writes to the file.
#include "platform/base/FileMark.h"
#include "support/FileFixture.h"
#include "support/TestMain.h"

#include <sys/xattr.h>

using namespace torvane;

class FileMarkTest : public FileFixture {
    Q_OBJECT

    Handle opened(const char* name = "a.gb") const {
        return Handle(::open(folder->native(name).constData(), O_RDWR));
    }
    std::optional<qint64> marked() const { return FileMark::read(opened(), "test"); }
    QByteArray attribute() const {
        QByteArray text(200, '\0');
        const ssize_t size = fgetxattr(opened().number(), "user.torvane.test", text.data(), 200);
        return text.first(std::max<ssize_t>(size, 0));
    }

private slots:
    void init() {
        renewFolder();
        write("a.gb", "content");
        makeOld("a.gb");
        FileMark::write(opened(), "test", 12345678901);
        if (attribute().isEmpty()) QSKIP("this file system has no extended attributes");
    }

    void a_number_is_remembered_under_its_name() {
        QCOMPARE(marked(), std::optional<qint64>(12345678901));
        QCOMPARE(FileMark::read(opened(), "other"), std::nullopt);
        FileMark::write(opened(), "test", -1);
        QCOMPARE(marked(), std::optional<qint64>(-1));
        QCOMPARE(read("a.gb"), QByteArray("content"));
    }
    void it_stays_when_the_file_is_renamed() {
        QVERIFY(QFile::rename(at("a.gb"), at("b.gb")));
        QCOMPARE(FileMark::read(opened("b.gb"), "test"), std::optional<qint64>(12345678901));
    }
    void it_is_forgotten_when_the_file_changes_data() {
        QTest::addColumn<QString>("deed");
        QTest::newRow("written") << QStringLiteral("printf CONTENT > a.gb");
        QTest::newRow("appended") << QStringLiteral("printf + >> a.gb");
        QTest::newRow("appended, time set back")
            << QStringLiteral("cp -p a.gb b && printf + >> a.gb && touch -r b a.gb");
        QTest::newRow("cut") << QStringLiteral("truncate -s 3 a.gb");
        QTest::newRow("other time") << QStringLiteral("touch -d @1000000001 a.gb");
        QTest::newRow("replaced") << QStringLiteral("cp a.gb b && mv b a.gb");
    }
    void it_is_forgotten_when_the_file_changes() {
        QFETCH(QString, deed);
        const QByteArray command = "cd " + folder->native("") + " && " + deed.toUtf8();
        QCOMPARE(std::system(command.constData()), 0);
        QCOMPARE(marked(), std::nullopt);
    }
    void any_other_text_counts_as_none_data() {
        QTest::addColumn<QByteArray>("text");
        const QByteArray good = "12345678901 of 7 at 1000000000.123456789";
        for (const QByteArray& text :
             {QByteArray(""), QByteArray(" "), QByteArray("7"), QByteArray("x of 7 at 1.1"),
              QByteArray(good + "0"), QByteArray("0" + good), QByteArray(good.chopped(1)),
              QByteArray(100, '9'), QByteArray(1000, '9')})
            QTest::newRow(text.left(60).constData()) << text;
    }
    void any_other_text_counts_as_none() {
        QFETCH(QByteArray, text);
        QCOMPARE(fsetxattr(opened().number(), "user.torvane.test", text.constData(),
                           static_cast<size_t>(text.size()), 0),
                 0);
        QCOMPARE(marked(), std::nullopt);
    }
    void a_closed_file_has_none() {
        FileMark::write(Handle(), "test", 1);
        QCOMPARE(FileMark::read(Handle(), "test"), std::nullopt);
    }
};

TORVANE_APPLESS_TEST(FileMarkTest)
#include "FileMarkTest.moc"

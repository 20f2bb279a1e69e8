// SPDX-License-Identifier: MIT
// The wait panel of the archive window says in one line why an archive lists nothing, in the user's language.
#include "platform/base/IniText.h"
#include "support/OpenedViewer.h"
#include "support/TestMain.h"

#include <QFontInfo>
#include <QFontMetrics>

using namespace torvane;
using namespace Qt::StringLiterals;

class ZIP_ViewerReasonsTest : public OpenedViewer {
    Q_OBJECT

    const QStringList keys{u"nogame"_s,    u"subfolders"_s, u"noroom"_s,
                           u"encrypted"_s, u"method"_s,     u"damaged"_s};

    // The bytes of an archive in tests/archives.
    static QByteArray archive(const QString& name) {
        QFile file(QStringLiteral(TORVANE_TESTS_DIR "/archives/%1.zip").arg(name));
        if (!file.open(QIODevice::ReadOnly)) qFatal("no such archive");
        return file.readAll();
    }
    void replaceArchive(const QByteArray& bytes) const {
        opened->world.folder.write(u"roms/other"_s, bytes);
        const QString path = opened->world.folder.path(u"roms/game.zip"_s);
        std::filesystem::rename(opened->world.folder.path(u"roms/other"_s).toStdString(), path.toStdString());
    }
    QString caption() const { return window().Label3.Caption(); }
    QString reading() const { return opened->text("ZIP", "reading"); }
    // Opens an archive that lists nothing; gives the reason shown, and closes the window.
    QString reasonFor(const QByteArray& bytes) {
        opened->game(u"game.zip"_s, bytes);
        opened->open();
        QString said;
        when([&] { return isOpen() && isSeen(window().Mensaje) && caption() != reading(); },
             [&] {
                 said = caption();
                 click(window().chameleonButton1);
             });
        click(main().Zipper);
        return said;
    }
    void removeReasons(const QString& file) const {
        QByteArray bytes = opened->world.folder.read(file);
        for (const QString& key : keys)
            bytes.replace("\r\n" + key.toLatin1() + '=', "\r\nno" + key.toLatin1() + '=');
        opened->world.folder.write(file, bytes);
    }
    void compareWidth(const QString& text) const {
        const Label& label = window().Label3;
        const QFont font = Fonts::of(label.fontSpec());
        QVERIFY2(QFontInfo(font).family() == font.family(), qPrintable(QFontInfo(font).family()));
        QVERIFY(!text.isEmpty());
        const int width = QFontMetrics(font).horizontalAdvance(text);
        QVERIFY2(width <= label.width(), qPrintable(u"%1: %2"_s.arg(text).arg(width)));
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void the_panel_says_why_nothing_is_listed_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("language");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no game inside") << archive(u"nothing"_s) << QByteArray("eng") << u"No game inside"_s;
        QTest::newRow("no game in the folder")
            << archive(u"folder-no-game"_s) << QByteArray("cat") << u"No hi ha cap joc a dins"_s;
        QTest::newRow("two folders") << archive(u"folder-two"_s) << QByteArray("eng")
                                     << u"Its games lie in subfolders"_s;
        QTest::newRow("too large") << archive(u"large-all"_s) << QByteArray("eng")
                                   << u"No room to unpack it"_s;
        QTest::newRow("encrypted") << archive(u"encrypted-all"_s) << QByteArray("esp")
                                   << u"El ZIP está cifrado"_s;
        QTest::newRow("method") << archive(u"methods-all"_s) << QByteArray("eng") << u"Unknown compression"_s;
        QTest::newRow("entries damaged")
            << archive(u"damaged-all"_s) << QByteArray("cat") << u"ZIP malmès o il·legible"_s;
        QTest::newRow("no archive") << QByteArray("no archive") << QByteArray("eng")
                                    << u"Damaged or unreadable ZIP"_s;
    }
    void the_panel_says_why_nothing_is_listed() {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, language);
        QFETCH(QString, reason);
        opened->world.useLanguage(language.constData());
        QCOMPARE(reasonFor(bytes), reason);
        QVERIFY(!isOpen());
        QCOMPARE(opened->world.messages.boxes.size(), 0);
    }
    void a_language_file_without_these_texts_leaves_them_in_english() {
        removeReasons(u"data/lang/lang_esp.tvl"_s);
        opened->world.useLanguage("esp");
        QCOMPARE(reasonFor(archive(u"encrypted-all"_s)), u"The ZIP is encrypted"_s);
    }
    void the_reason_follows_the_archive_and_disappears_when_something_is_listed() {
        opened->game(u"game.zip"_s, archive(u"encrypted-all"_s));
        opened->open();
        QStringList said;
        const auto after = [&](const QByteArray& next) {
            said.append(caption());
            replaceArchive(next);
        };
        when([&] { return isOpen() && caption() != reading(); },
             [&] {
                 after(archive(u"folder-two"_s));
                 when([&] { return caption() != said.constLast(); }, [&] { after(archive(u"no-game"_s)); });
             });
        click(main().Zipper);
        QCOMPARE(said, (QStringList{u"The ZIP is encrypted"_s, u"Its games lie in subfolders"_s}));
        QCOMPARE(window().ListView1.rowCount(), 1); // a text
        QVERIFY(!isSeen(window().Mensaje));
        QCOMPARE(caption(), reading());
    }
    void every_text_fits_on_the_line_in_every_language() {
        openArchive({{u"a.gb"_s, "x"}});
        for (const char* code : {"esp", "cat", "eng"}) {
            const QString name = u"data/lang/lang_%1.tvl"_s.arg(QLatin1String(code));
            const QString file = opened->world.folder.path(name);
            compareWidth(IniText::read(u"ZIP"_s, u"reading"_s, file));
            for (const QString& key : keys) compareWidth(IniText::read(u"ZIP"_s, key, file));
        }
    }
};

TORVANE_TEST(ZIP_ViewerReasonsTest)
#include "ZIP_ViewerReasonsTest.moc"

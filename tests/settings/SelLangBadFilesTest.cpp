// SPDX-License-Identifier: MIT
// Language files of any content: chosen, loaded and used for a whole start, the windows stay usable. A text
// that is missing is empty, and no text is ever taken for markup.
#include "support/OpenedLanguages.h"
#include "support/TestMain.h"

#include <filesystem>

using namespace torvane;
using namespace Qt::StringLiterals;

class SelLangBadFilesTest : public OpenedLanguages {
    Q_OBJECT

    struct FileKind {
        QByteArray bytes;
        qint64 length = -1;  // of a file that is longer than its bytes
        QString gameTitle;   // what the main window says instead of "Game title"
        QString description; // the first line
    };

    // Every second key of each section: the name of the language stays, the caption of a game's title goes.
    static QByteArray halfOf(const QByteArray& bytes) {
        QByteArrayList kept;
        bool isNext = false;
        for (const QByteArray& line : bytes.split('\n')) {
            isNext = line.startsWith('[') || !isNext;
            if (isNext || line.startsWith("langname=") || line.startsWith("hisname=")) kept += line;
        }
        kept.removeIf([](const QByteArray& line) { return line.startsWith("gametitle="); });
        return kept.join('\n');
    }

    static inline const QByteArray markup = "<b onclick='x'>&lt;</b><img src='http://host.invalid/x'>";

    // Every control that a user needs to go on.
    void useWindows() {
        opened->program->desk.go(Window::ConfigNew, Window::SelLang);
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        QCOMPARE(rows().size(), 4);
        choose(u"lang_esp.tvl"_s);
        QCOMPARE(lines().first(), u"Idioma: Español"_s);
        click(window().chameleonButton1);
        click(main().chameleonButton5);
        QVERIFY(loaded<Aboutfrm>() != nullptr && loaded<Aboutfrm>()->isVisible());
        click(loaded<Aboutfrm>()->ChameleonButton17);
        QCOMPARE(opened->world.browser.urls.size(), 1);
        click(loaded<Aboutfrm>()->chameleonButton1);
        QVERIFY(main().isVisible());
        click(main().Edit_Menu);
        QVERIFY(isSeen(main().EditID3Title));
    }

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void a_file_of_any_content_leaves_the_windows_usable_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<qint64>("length");
        QTest::addColumn<QString>("gameTitle");
        QTest::addColumn<QString>("description");
        QFile file(QStringLiteral(TORVANE_TREE_DIR "/data/lang/lang_esp.tvl"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray spanish = file.readAll();
        const auto row = [](const char* name, const FileKind& kind) {
            QTest::newRow(name) << kind.bytes << kind.length << kind.gameTitle << kind.description;
        };
        const QString none = u" "_s;
        row("0 bytes", {QByteArray(), -1, {}, none});
        row("100 MiB", {spanish, 100 << 20, {}, none});
        row("100 MiB of zeros", {QByteArray(), 100 << 20, {}, none});
        const QByteArray utf8 = QString::fromLatin1(spanish).toUtf8();
        row("UTF-8", {utf8, -1, u"TÃ\xADtulo del juego"_s, u"Idioma: EspaÃ±ol"_s});
        row("UTF-8 with a byte order mark",
            {"\xEF\xBB\xBF" + utf8, -1, u"TÃ\xADtulo del juego"_s, u"Idioma: EspaÃ±ol"_s});
        row("UTF-16", {QByteArray("\xFF\xFE[\0M\0a\0i\0n\0", 12) + QByteArray(500, '\0'), -1, {}, none});
        row("half its keys", {halfOf(spanish), -1, {}, u"Idioma: Español"_s});
        row("line feeds alone",
            {QByteArray(spanish).replace('\r', ""), -1, u"Título del juego"_s, u"Idioma: Español"_s});
        QByteArray all;
        for (int i = 0; i < 65536; ++i) all += static_cast<char>(i * 7 + i / 256);
        row("all bytes", {all, -1, {}, none});
        const QByteArray longText(1 << 20, 'W');
        row("texts of 1 MiB", {"[FileInfo]\r\nhisname=" + longText + "\r\nlangname=x\r\nloaded=" + longText +
                                   "\r\n[MainMenu]\r\ngametitle=" + longText + "\r\n",
                               -1, QString::fromLatin1(longText), QString::fromLatin1(longText) + u" x"_s});
    }
    void a_file_of_any_content_leaves_the_windows_usable() {
        QFETCH(QByteArray, bytes);
        QFETCH(qint64, length);
        QFETCH(QString, gameTitle);
        QFETCH(QString, description);
        const QString path = write(u"own.tvl"_s, bytes);
        if (length >= 0)
            std::filesystem::resize_file(path.toStdString(), static_cast<std::uintmax_t>(length));
        openLanguages();
        choose(u"own.tvl"_s);
        QCOMPARE(lines().first(), description);
        clickLoad();
        QCOMPARE(messages().boxes.size(), 1);
        QVERIFY(loaded<SelLang>() == nullptr);
        useWindows();
        opened->close();
        opened->world.browser.urls.clear();
        opened->open();
        QCOMPARE(opened->program->globals.LanguageFile, spelled(u"own.tvl"_s));
        QCOMPARE(main().Lbl_ID3Title.Caption(), gameTitle);
        useWindows();
        QCOMPARE(opened->world.ends, 0);
    }
    void markup_in_a_file_is_shown_as_it_stands() {
        write(u"own.tvl"_s, "[FileInfo]\r\nhisname=" + markup + "\r\nlangname=" + markup +
                                "\r\nloaded=" + markup + "\r\n[Globals]\r\nsuretodelete=" + markup +
                                "\r\n[About]\r\nreport=" + markup + "\r\nreport2=" + markup +
                                "\r\n[SelLang]\r\nmore=" + markup + "\r\n");
        const QString shown = QString::fromLatin1(markup);
        openLanguages();
        choose(u"own.tvl"_s);
        QCOMPARE(lines().first(), shown + u' ' + shown);
        clickLoad();
        QCOMPARE(messages().last(), shown);
        openLanguages();
        QCOMPARE(window().ChameleonButton17.Caption(), shown);
        choose(u"own.tvl"_s);
        clickDelete(MsgBoxFlags::answerNo);
        QCOMPARE(messages().last(), shown);
        click(window().chameleonButton1);
        click(main().chameleonButton5);
        QCOMPARE(loaded<Aboutfrm>()->TVLabel1.Caption(), shown + u" »"_s);
    }
};

TORVANE_TEST(SelLangBadFilesTest)
#include "SelLangBadFilesTest.moc"

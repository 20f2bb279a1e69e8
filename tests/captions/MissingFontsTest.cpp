// SPDX-License-Identifier: MIT
// All captions of all windows, in all languages, where no font is installed but the one that nearly every
// desktop has, which is wide.
#include "LanguageCheck.h"
#include "art/ArtResources.h"
#include "support/OnlyFonts.h"
#include "support/TestMain.h"

#include <QFile>
#include <QFontInfo>

using namespace torvane;

class MissingFontsTest : public QObject {
    Q_OBJECT

public:
    static void initMain() { useOnlyFonts({"DejaVuSans.ttf", "DejaVuSans-Bold.ttf"}); }

private slots:
    void initTestCase() {
        initArtResources();
        QCOMPARE(QFontInfo(QFont(QStringLiteral("Liberation Sans"))).family(), QStringLiteral("DejaVu Sans"));
    }
    void every_caption_is_whole_data() {
        QTest::addColumn<QString>("code");
        for (const char* code : {"esp", "cat", "eng"}) QTest::newRow(code) << QString::fromLatin1(code);
    }
    void every_caption_is_whole() {
        QFETCH(QString, code);
        QFile file(QStringLiteral(TORVANE_TREE_DIR "/data/lang/lang_%1.tvl").arg(code));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList cut = LanguageCheck().faultsOf(file.readAll());
        QVERIFY2(cut.isEmpty(), qPrintable(cut.join(QLatin1Char('\n'))));
    }
};

TORVANE_TEST(MissingFontsTest)
#include "MissingFontsTest.moc"

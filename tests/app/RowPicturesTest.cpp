// SPDX-License-Identifier: MIT
// Which picture the rows of games and of archive members show.
#include "support/Archive.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QAbstractItemView>

using namespace torvane;
using namespace Qt::StringLiterals;

class RowPicturesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    // The name of the picture of each row, as far as it is one of the consoles'.
    static QStringList pictures(const QWidget& list) {
        const QAbstractItemModel* rows = list.findChild<QAbstractItemView*>()->model();
        QStringList names;
        for (int row = 0; row < rows->rowCount(); ++row) {
            const QImage shown = rows->index(row, 0).data(Qt::DecorationRole).value<QPixmap>().toImage();
            names << nameOf(shown);
        }
        return names;
    }
    static QString nameOf(const QImage& shown) {
        for (const char* name : {"advance", "gameboy", "color", "archive", "unknown"}) {
            const QString file = u"console-%1-32.png"_s.arg(QLatin1String(name));
            if (!shown.isNull() && Pictures::load(file).toImage() == shown) return QString::fromLatin1(name);
        }
        return u"none"_s;
    }

private slots:
    void init() { opened = std::make_unique<OpenedProgram>(); }
    void cleanup() { opened.reset(); }

    void games_have_the_picture_of_their_console() {
        for (const char* name : {"a.gba", "b.gb", "c.gbc", "d.zip"}) opened->game(QString::fromLatin1(name));
        const QStringList expected{u"advance"_s, u"gameboy"_s, u"color"_s, u"archive"_s};
        QCOMPARE(pictures(opened->open().ListView1), expected);
    }
    void members_have_the_picture_of_their_console_or_that_of_the_unknown() {
        writeArchive(opened->world.folder.path(u"roms/p.zip"_s),
                     {{u"a.gba"_s, "1"}, {u"b.gb"_s, "2"}, {u"c.gbc"_s, "3"}, {u"d.txt"_s, "4"}});
        opened->open();
        click(opened->main().Zipper);
        const QStringList expected{u"advance"_s, u"gameboy"_s, u"color"_s, u"unknown"_s};
        QCOMPARE(pictures(opened->program->loaded<ZIP_Viewer>()->ListView1), expected);
    }
};

TORVANE_TEST(RowPicturesTest)
#include "RowPicturesTest.moc"

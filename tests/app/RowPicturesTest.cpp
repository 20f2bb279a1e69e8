// SPDX-License-Identifier: MIT
// Which picture the rows of games, of archive members and of screenshots show.
#include "support/Archive.h"
#include "support/OpenedProgram.h"
#include "support/TestMain.h"

#include <QAbstractItemView>

using namespace torvane;
using namespace Qt::StringLiterals;

class RowPicturesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<OpenedProgram> opened;

    // The name of the picture of each row, as far as it is one of a console or of a format.
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
        for (const char* name : {"console-advance", "console-gameboy", "console-color", "console-archive",
                                 "console-unknown", "image-jpg", "image-gif", "image-bmp", "image-png"}) {
            const QString file = QString::fromLatin1(name) + u"-32.png"_s;
            if (!shown.isNull() && Pictures::load(file).toImage() == shown) {
                return QString::fromLatin1(name).section(u'-', 1);
            }
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
    void screenshots_have_the_picture_of_their_format() {
        opened->game(u"a.gb"_s);
        for (const char* name : {"0.0.jpg", "a.jpg", "b.gif", "c.bmp", "d.png"}) {
            opened->world.folder.write(u"roms/data/screenshots/"_s + QLatin1String(name), "x");
        }
        opened->open();
        click(opened->main().chameleonButton4);
        const QStringList expected{u"none"_s, u"jpg"_s, u"gif"_s, u"bmp"_s, u"png"_s};
        QCOMPARE(pictures(opened->program->loaded<Compartir>()->Snap), expected);
    }
};

TORVANE_TEST(RowPicturesTest)
#include "RowPicturesTest.moc"

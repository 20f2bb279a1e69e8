// SPDX-License-Identifier: MIT
// Shows the picture sheet in a window until it is closed; "--save FILE.png" writes a picture of it instead.
// QT_SCALE_FACTOR=2 shows what a dense screen gets.
#include "PictureSheet.h"
#include "art/ArtResources.h"
#include "support/FakeWorld.h"

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const bool saves = arguments.size() == 3 && arguments[1] == QLatin1String("--save");
    if (arguments.size() > 1 && !saves) {
        std::fputs("usage: torvane_picture_sheet [--save FILE.png]\n", stderr);
        return 2;
    }
    torvane::initArtResources();
    torvane::FakeWorld world;
    torvane::PictureSheet sheet(world.runtime);
    QObject::connect(&sheet, &torvane::Form::unloaded, &application, &QApplication::quit);
    sheet.Show();
    if (!saves) return QApplication::exec();
    if (sheet.grab().save(arguments[2])) return 0;
    std::fprintf(stderr, "torvane_picture_sheet: cannot write %s\n", qPrintable(arguments[2]));
    return 1;
}

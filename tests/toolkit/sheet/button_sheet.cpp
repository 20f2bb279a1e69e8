// SPDX-License-Identifier: MIT
// The sheet program: shows every look of the skinned button in one window, saves a picture of it, or
// renews the golden images.
#include "GoldenImages.h"
#include "SheetForm.h"

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <cstdio>

using namespace torvane;

namespace {
int fail(const QString& reason) {
    std::fprintf(stderr, "torvane_button_sheet: %s\n", qPrintable(reason));
    return 1;
}

int saveSheet(const QString& file) {
    SheetForm sheet;
    sheet.show();
    QCoreApplication::processEvents();
    return sheet.grab().save(file, "PNG") ? 0 : fail(QStringLiteral("cannot write ") + file);
}

int showSheet() {
    SheetForm sheet;
    QScrollArea area;
    area.setWindowTitle(QStringLiteral("Torvane: buttons"));
    area.setFrameShape(QFrame::NoFrame);
    QPalette colours = area.palette();
    colours.setColor(QPalette::Window, Colours::toQColor(SheetForm::back));
    area.setPalette(colours);
    area.setWidget(&sheet);
    const QSize wanted = sheet.plan().size + QSize(area.verticalScrollBar()->sizeHint().width(), 0);
    const QSize room = area.screen()->availableSize() - QSize(16, 40); // the window's own frame
    area.resize(wanted.boundedTo(room));
    area.show();
    const int result = QApplication::exec();
    area.takeWidget(); // the sheet is no child that could be deleted
    return result;
}
} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i) words.append(QString::fromLocal8Bit(argv[i]));
    const bool saves = words.value(0) == QStringLiteral("--save");
    const bool renews = words.value(0) == QStringLiteral("--write-golden");
    if (words.size() != (saves || renews ? 2 : 0)) {
        return fail(QStringLiteral("usage: torvane_button_sheet [--save FILE.png | --write-golden FOLDER]"));
    }
    if (renews) useFixedPlatform("1");
    if (saves) useFixedPlatform(qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toLatin1());
    const QApplication application(argc, argv);
    if (!missingFonts().isEmpty()) return fail(missingFonts());
    if (saves) return saveSheet(words.at(1));
    if (!renews) return showSheet();
    return writeGoldenImages(words.at(1)) ? 0 : fail(QStringLiteral("cannot write into ") + words.at(1));
}

// SPDX-License-Identifier: MIT
// The list of icons and how each kind is rendered. A button icon takes its mask colour from the button's row
// in the catalogue, so that picture and button agree.
#include "Icons.h"

#include "Drawing.h"

#include <QFile>

#include <stdexcept>
#include <utility>

namespace torvane {

namespace {

struct Icon {
    QString name;   // file name without extension
    QString source; // SVG name without extension
    int pixels = 0;
    QString kind; // masked, twin, sprite, smooth or theme
    QString window;
    QString control;
};

// Four times the 22 pixels of a usual panel, so that the desktop can scale it cleanly to 16, 22, 24 and 32
// pixels, and sharply on dense screens.
constexpr int trayPixels = 88;

// Normal, strong blue, sky blue, red, lilac, green, gold: the upper and lower tone of the sign's plate.
constexpr std::pair<const char*, const char*> trayColours[] = {
    {"#8D96C4", "#474D78"}, {"#3F68F5", "#1230A8"}, {"#4ABAF0", "#1470B2"}, {"#F5574A", "#A81414"},
    {"#BE76E6", "#7028A0"}, {"#3DB84C", "#0A6420"}, {"#EAAA1A", "#945A02"}};

QList<Icon> iconList(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + path.toStdString());
    QList<Icon> icons;
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) continue;
        const QStringList cell = line.split('\t');
        if (cell.size() != 6) throw std::runtime_error("icons.tsv: " + line.toStdString());
        icons << Icon{cell[0], cell[1], cell[2].toInt(), cell[3], cell[4], cell[5]};
    }
    return icons;
}

QImage rendered(const Icon& icon, const Drawing& drawing, const Catalogue& catalogue, int scale) {
    const int pixels = icon.pixels * scale;
    if (icon.kind == "smooth" || icon.kind == "theme")
        return drawing.smooth(pixels).convertToFormat(QImage::Format_ARGB32);
    const QImage sprite = drawing.hardEdged(pixels, scale);
    return icon.kind == "sprite" ? sprite : masked(sprite, catalogue.mask(icon.window, icon.control));
}

} // namespace

void paintIcons(const Catalogue& catalogue, const QString& sources, Output& output) {
    for (const Icon& icon : iconList(sources + "/icons.tsv")) {
        const Drawing drawing(sources + "/svg/" + icon.source + ".svg");
        if (icon.kind == "theme") {
            output.png("theme/" + icon.name + ".png", rendered(icon, drawing, catalogue, 1));
            continue;
        }
        for (int scale : {1, 2}) {
            output.picture(scaledName(icon.name + ".png", scale), rendered(icon, drawing, catalogue, scale));
            if (icon.kind != "twin") continue;
            output.picture(scaledName(icon.name + "-over.png", scale),
                           rendered(icon, drawing.warm(), catalogue, scale));
        }
    }
}

void paintTray(const QString& sources, Output& output) {
    const Drawing sign(sources + "/svg/tray.svg");
    int number = 0;
    for (const auto& [upper, lower] : trayColours) {
        const Drawing coloured = sign.recoloured({{"#A9B2D6", upper}, {"#59608C", lower}});
        const auto image = [&](int pixels) {
            return coloured.smooth(pixels).convertToFormat(QImage::Format_ARGB32);
        };
        output.png(QString("tree/data/tray/%1.dat").arg(number), image(trayPixels));
        for (int scale : {1, 2})
            output.picture(scaledName(QString("tray-%1-16.png").arg(number), scale), image(16 * scale));
        ++number;
    }
}

} // namespace torvane

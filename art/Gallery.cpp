// SPDX-License-Identifier: MIT
// The gallery of screenshots, the stock picture for what it can't read, and the window of one enlarged
// picture.
#include "Backgrounds.h"

#include "Drawing.h"
#include "Palette.h"
#include "Panel.h"
#include "Parts.h"
#include "Scene.h"

#include <QRadialGradient>

namespace torvane {

using namespace palette;

namespace {

// Short grooves between two groups of buttons.
void gap(Panel& panel, const QRectF& left, const QRectF& right) {
    constexpr int grooves = 3;
    constexpr qreal step = 5;
    constexpr qreal margin = 8;
    const qreal top = left.top() + 5;
    for (int number = 0; number < grooves; ++number)
        panel.groove(
            {left.right() + margin, top + number * step, right.left() - left.right() - 2 * margin, 2});
}

// The buttons under the preview: a step at each end, the tools in the middle.
void tools(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QStringList middle = {"ChameleonButton8", "ChameleonButton9", "ChameleonButton10"};
    const QRectF back = catalogue.rect(window, "ChameleonButton6");
    const QRectF next = catalogue.rect(window, "ChameleonButton7");
    panel.seat({back});
    panel.seat({next});
    panel.seat(catalogue.places(window, middle));
    gap(panel, back, catalogue.united(window, middle));
    gap(panel, catalogue.united(window, middle), next);
}

// What is known about the picture: three lines with their headings in one bed.
QRectF facts(Panel& panel, const Catalogue& catalogue, const QString& window) {
    const QRectF preview = catalogue.rect(window, "Image1");
    const QRectF words = catalogue.united(window, {"Label5", "Format", "Tamany"});
    const QRectF bed = between(preview.left() - 2, words.top() - 2, preview.right() + 2, words.bottom() + 3);
    factSheet(panel, bed, {catalogue.rect(window, "Label8").top(), catalogue.rect(window, "Label7").top()});
    return bed;
}

// A dark stage, a little lighter where the picture will be.
void stage(Panel& panel, const QRectF& area) {
    panel.well(area);
    QRadialGradient light(area.center(), area.width() * 0.6);
    light.setColorAt(0, veil(foldOut, 70));
    light.setColorAt(1, veil(cut, 150));
    panel.painter().fillRect(area, light);
    panel.brush(area); // without it the dark gradient shows as rings
}

// The marks at the four corners of the stage, as on a photographer's focusing screen.
void cornerMarks(Panel& panel, const QRectF& area) {
    constexpr qreal arm = 22;
    constexpr qreal thick = 2;
    const QRectF field = area.adjusted(12, 12, -12, -12);
    for (const QPointF at : {field.topLeft(), field.topRight(), field.bottomLeft(), field.bottomRight()}) {
        const qreal across = at.x() < field.center().x() ? arm : -arm;
        const qreal down = at.y() < field.center().y() ? arm : -arm;
        QPainterPath mark;
        mark.addRect(QRectF(at, QSizeF(across, down > 0 ? thick : -thick)).normalized());
        mark.addRect(QRectF(at, QSizeF(across > 0 ? thick : -thick, down)).normalized());
        panel.engraving(mark.simplified());
    }
}

} // namespace

QImage paintCompartir(const Workshop& shop) {
    const QString window = "Compartir";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF list = shop.catalogue.rect(window, "Snap");
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.plate(
        between(list.right() + 4, list.top() - 2, size.width() - frameWidth, size.height() - frameWidth - 1));
    panel.well(list);
    panel.well(shop.catalogue.rect(window, "Image1"));
    tools(panel, shop.catalogue, window);
    const QRectF bed = facts(panel, shop.catalogue, window);
    vaneMark(panel, between(bed.left() + 16, bed.bottom() + 11, bed.right() - 16, size.height() - 10));
    panel.frame();
    return panel.finished();
}

QImage paintUnreadPicture(const Workshop& shop) {
    const QSizeF size = shop.catalogue.rect("Compartir", "Image16").size();
    const QRectF whole(QPointF(0, 0), size);
    Panel panel(size.toSize(), shop.scale);
    QPainter& painter = panel.painter();
    scene::landscape(painter, whole, scene::Weather::Clouds);
    const qreal height = size.height() - 17;
    scene::helper(painter, shop.drawings, "asking", QRectF(8, 14, height * 240 / 260, height));
    Drawing(shop.drawings.filePath("unread.svg")).paint(painter, QRectF(250, 62, 200, 179));
    return panel.finished().convertToFormat(QImage::Format_RGB888);
}

QImage paintAmpliCaptura(const Workshop& shop) {
    const QString window = "AmpliCaptura";
    const QSize size = shop.catalogue.windowSize(window);
    const QRectF area = between(frameWidth + 2, titleBandHeight + 4, size.width() - frameWidth - 2,
                                size.height() - frameWidth - 2);
    Panel panel(size, shop.scale);
    panel.titleBand();
    panel.frame();
    stage(panel, area);
    cornerMarks(panel, area);
    return panel.finished();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The four pages of the assistant: the helper's scene above, and below it the control strip with the path
// field, its button and the track of the progress bar. Every part has the same place on all pages, so that
// turning a page moves nothing but the helper.
#include "Backgrounds.h"

#include "Drawing.h"
#include "Palette.h"
#include "Panel.h"
#include "Scene.h"

#include <cmath>
#include <numbers>

namespace torvane {

using namespace palette;

namespace {

constexpr auto assistantWindow = "NewAssistant";
const QColor alarm(0xe0, 0x60, 0x5c);
constexpr int markPixels = 16;

// A mark beside a hot area.
struct Mark {
    const char* area;    // the control that answers the click
    const char* drawing; // SVG name without extension
};

struct Page {
    const char* mood;
    scene::Weather weather;
    QColor rim;
    QList<Mark> marks;
    bool hasPathField;
};

Page pageOf(AssistantPage page) {
    switch (page) {
    case AssistantPage::Welcome: break;
    case AssistantPage::Choice:
        return {"pointing", scene::Weather::Clear, rim, {{"AddFile", "game"}, {"AddDir", "folder"}}, true};
    case AssistantPage::Sources:
        return {"asking",
                scene::Weather::Aurora,
                rim,
                {{"ChameleonButton5", "delete"}, {"ChameleonButton6", "keep"}},
                false};
    case AssistantPage::Trouble: return {"troubled", scene::Weather::Clouds, alarm, {}, true};
    }
    return {"glad", scene::Weather::Aurora, rim, {}, false};
}

// The bed of a mark: as high as the hot area, and left of it.
QRectF bedBeside(const QRectF& area) {
    constexpr qreal width = 20;
    constexpr qreal gap = 4;
    return {area.left() - gap - width, area.top(), width, area.height()};
}

// The scene reaches down to the control strip, which begins above the highest of its controls.
QRectF sceneOf(const Workshop& shop, QSizeF size) {
    return {0, 0, size.width(), shop.catalogue.united(assistantWindow, {"FilePath", "Browse"}).top() - 5};
}

// The light that the mark casts along its line. It has no edge, because a line's words may be a little higher
// or lower than the hot area.
void beam(QPainter& painter, const QRectF& area) {
    const qreal step = 0.5;
    for (qreal down = 0; down < area.height(); down += step) {
        const qreal light = std::sin(std::numbers::pi * (down + step / 2) / area.height());
        const QRectF line(area.left() - 4, area.top() + down, area.width() + 4, step);
        QLinearGradient fade(line.topLeft(), line.topRight());
        fade.setColorAt(0, veil(ember, qRound(64 * light)));
        fade.setColorAt(0.25, veil(foldOut, qRound(52 * light)));
        fade.setColorAt(1, veil(foldOut, 0));
        painter.fillRect(line, fade);
    }
}

void paintMark(Panel& panel, const Workshop& shop, const Mark& mark) {
    const QRectF area = shop.catalogue.rect(assistantWindow, mark.area);
    const QRectF bed = bedBeside(area);
    beam(panel.painter(), area);
    panel.slot(bed);
    QImage sign = Drawing(shop.drawings.filePath(QString(mark.drawing) + ".svg"))
                      .hardEdged(markPixels * shop.scale, shop.scale);
    const QPointF corner = (bed.center() - QPointF(markPixels, markPixels) / 2) * shop.scale;
    sign.setDevicePixelRatio(shop.scale);
    panel.painter().drawImage(QPointF(corner.toPoint()) / shop.scale, sign);
}

void paintScene(Panel& panel, const Workshop& shop, const Page& page, const QRectF& area) {
    QPainter& painter = panel.painter();
    painter.save();
    painter.setClipRect(area);
    scene::landscape(painter, area, page.weather);
    panel.brush(area);
    const QRectF words = shop.catalogue.rect(assistantWindow, "Label1");
    const qreal left = bedBeside(shop.catalogue.rect(assistantWindow, "AddFile")).left() - 4.5;
    scene::speechSheet(painter, {QPointF(left, words.top() - 8.5), words.bottomRight() + QPointF(10.5, 4.5)},
                       78, page.rim);
    const qreal height = area.height() - 17;
    scene::helper(painter, shop.drawings, page.mood, QRectF(2, 18, height * 240 / 260, height));
    painter.restore();
    for (const Mark& mark : page.marks) paintMark(panel, shop, mark);
}

// On pages without a field or a button, a blank cover plate is in its place.
void paintStrip(Panel& panel, const Workshop& shop, bool hasPathField) {
    const QRectF path = shop.catalogue.rect(assistantWindow, "FilePath");
    const QRectF track = shop.catalogue.rect(assistantWindow, "Pista");
    panel.frame();
    panel.seat({shop.catalogue.rect(assistantWindow, "Browse")});
    if (hasPathField) {
        panel.well(path);
    } else {
        panel.seat({path});
    }
    panel.well(track);
    // The helper's voice: a row of short grooves beside the track.
    constexpr qreal step = 5;
    for (qreal y = track.top() + 3; y + 2 <= track.bottom(); y += step)
        panel.groove(QRectF(path.left() + 8, y, track.left() - path.left() - 24, 2));
}

} // namespace

QImage paintAssistant(const Workshop& shop, AssistantPage number) {
    const Page page = pageOf(number);
    const QSizeF size =
        shop.catalogue.rect(assistantWindow, "One").size(); // less high than the window itself
    const QRectF area = sceneOf(shop, size);
    Panel panel(size.toSize(), shop.scale);
    paintScene(panel, shop, page, area);
    panel.hairline(area.bottom());
    paintStrip(panel, shop, page.hasPathField);
    return panel.finished();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The loops: the vane on its tor in the night, the ridge with cartridge stones under the northern lights, and
// the credits. All motion ends where it began, and nothing changes faster than about once a second.
#include "Movies.h"

#include "Credits.h"
#include "Night.h"
#include "Palette.h"
#include "Panel.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace torvane {

using namespace palette;

namespace {

constexpr int frameMilliseconds = 75;    // 13 frames a second
constexpr int creditsMilliseconds = 100; // ten: little moves there
constexpr int framesOfIntro = 96;
constexpr int framesOfBanner = 96;

// How img2webp packs the frames.
struct Packing {
    QString options;
    int quality;      // 0 to 100
    int denseQuality; // at 2x, where the pixels are half as large
    bool isExact;
};

struct Movie {
    QString name;
    QString target; // the file of the loop, relative to the output folder
    QSize size;
    int frames;
    int milliseconds; // of each frame
    Packing packing;
    std::function<void(QPainter&, const QRectF&, qreal turn)> scene;
};

void intro(QPainter& painter, const QRectF& area, qreal turn) {
    night::sky(painter, area);
    night::stars(painter, area, 60, turn);
    night::moon(painter, QPointF(34, 27), 9);
    night::ridge(painter, area.adjusted(0, 62, 0, 0), farHill, 5, 26);
    night::mist(painter, area.adjusted(0, 60, 0, 0), turn);
    night::ridge(painter, area.adjusted(0, 84, 0, 0), middleHill, 9, 20);
    night::ridge(painter, area.adjusted(0, 102, 0, 0), nearHill, 3, 10);
    night::tor(painter, QPointF(122, 108), 9);
    night::vane(painter, QPointF(120, 72), 42,
                night::fullTurn * turn + 0.35 * std::sin(2 * night::fullTurn * turn));
}

// A standing stone in the shape of a cartridge, lit from the top left; `light` 0 to 1 is the lamp behind its
// label.
void stone(QPainter& painter, QPointF foot, qreal unit, qreal light) {
    const QRectF body(foot.x() - 5 * unit, foot.y() - 12 * unit, 10 * unit, 14 * unit);
    QPainterPath shape;
    shape.addPolygon(
        QPolygonF({body.topLeft(), body.topRight() - QPointF(2.2 * unit, 0),
                   body.topRight() + QPointF(0, 2.2 * unit), body.bottomRight(), body.bottomLeft()}));
    shape.closeSubpath();
    QLinearGradient side(body.topLeft(), body.bottomRight());
    side.setColorAt(0, foldOut.darker(112));
    side.setColorAt(1, nearHill);
    painter.setPen(QPen(edge, 0.8));
    painter.setBrush(side);
    painter.drawPath(shape);
    const QRectF label(body.left() + 2 * unit, body.top() + 3.4 * unit, 6 * unit, 5 * unit);
    painter.setPen(Qt::NoPen);
    painter.setBrush(cut);
    painter.drawPath(rounded(label, unit * 0.8));
    painter.setBrush(veil(ember, qRound(50 + 190 * light)));
    painter.drawPath(rounded(label.adjusted(0.5, 0.5, -0.5, -0.5), unit * 0.7));
}

// The lamps light up one after the other from left to right, each for about a third of the loop.
qreal lamp(qreal turn, qreal place) {
    return std::pow(0.5 + 0.5 * std::cos(night::fullTurn * (turn - place)), 3.0);
}

void banner(QPainter& painter, const QRectF& area, qreal turn) {
    night::sky(painter, area);
    night::stars(painter, area, 90, turn);
    night::aurora(painter, area.adjusted(0, -6, 0, -8), turn);
    night::ridge(painter, area.adjusted(0, 30, 0, 0), farHill, 5, 16, turn);
    night::ridge(painter, area.adjusted(0, 42, 0, 0), middleHill, 12, 12);
    constexpr int stones = 7;
    for (int place = 0; place < stones; ++place) {
        const qreal unit = 1.7 + 0.5 * noise(quint32(place), 40);
        const QPointF foot(58 + place * 44 + 8 * noise(quint32(place), 41),
                           53 + 3 * noise(quint32(place), 42));
        stone(painter, foot, unit, lamp(turn, qreal(place) / stones));
    }
    night::ridge(painter, area.adjusted(0, 52, 0, 0), nearHill, 3, 5);
    night::tor(painter, QPointF(404, 57), 5);
    night::vane(painter, QPointF(403, 37), 27,
                0.9 * std::sin(night::fullTurn * turn) + 0.25 * std::sin(2 * night::fullTurn * turn));
}

QImage paintedFrame(const Movie& movie, int frame, int scale) {
    QImage image(movie.size * scale, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    movie.scene(painter, QRectF(QPointF(0, 0), movie.size), qreal(frame) / movie.frames);
    return image;
}

// To the nearest multiple of 8.
int coarse(int shade) { return std::min(255, (shade + 4) & ~7); }

// A colour that is only shown for one frame is rounded, in words that fade and at the edges of what moves:
// nobody sees that, and the frames take two thirds of the bytes.
QImage coarseWhereBrief(const QImage& frame, const QImage& before, const QImage& after) {
    QImage result = frame;
    for (int y = 0; y < frame.height(); ++y) {
        const auto* last = reinterpret_cast<const QRgb*>(before.constScanLine(y));
        const auto* next = reinterpret_cast<const QRgb*>(after.constScanLine(y));
        auto* shown = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < frame.width(); ++x) {
            const QRgb colour = shown[x];
            if (colour == last[x] || colour == next[x]) continue;
            shown[x] = qRgb(coarse(qRed(colour)), coarse(qGreen(colour)), coarse(qBlue(colour)));
        }
    }
    return result;
}

// The frames of the loop in order, as they are packed.
void eachFrame(const Movie& movie, int scale, const std::function<void(int frame, const QImage&)>& take) {
    QImage before = paintedFrame(movie, movie.frames - 1, scale);
    QImage now = paintedFrame(movie, 0, scale);
    for (int frame = 0; frame < movie.frames; ++frame) {
        const QImage after = paintedFrame(movie, (frame + 1) % movie.frames, scale);
        take(frame, movie.packing.isExact ? coarseWhereBrief(now, before, after) : now);
        before = std::exchange(now, after);
    }
}

void paintMovie(const Output& output, const Movie& movie, int scale) {
    const Packing& packing = movie.packing;
    QString arguments = QString("-loop 0 %1 -q %2 -m 4 -d %3\n")
                            .arg(packing.options)
                            .arg(scale == 1 ? packing.quality : packing.denseQuality)
                            .arg(movie.milliseconds);
    eachFrame(movie, scale, [&](int frame, const QImage& image) {
        const QString file =
            scaledName(QString("frames/%1-%2.png").arg(movie.name).arg(frame, 3, 10, QChar('0')), scale);
        output.png(file, image);
        arguments += file + '\n';
    });
    arguments += "-o " + scaledName(movie.target, scale) + '\n';
    output.text(scaledName(movie.name + ".args", scale), arguments);
}

// Every frame is complete: partial frames would leave old blocks visible in the soft light of the sky.
Packing lossy(int quality) { return {"-kmin 0 -kmax 1 -lossy", quality, quality - 4, false}; }

// Letters stay sharp, and each frame has only what changes. The quality is how hard it tries.
const Packing lossless{"-kmax 0 -lossless", 75, 75, true};

} // namespace

void paintMovies(const Output& output, const Credits& credits) {
    const auto creditsScene = [&credits](QPainter& painter, const QRectF& area, qreal turn) {
        credits.paint(painter, area, turn);
    };
    const QList<Movie> movies{
        {"intro", "tree/data/intro.dat", {192, 122}, framesOfIntro, frameMilliseconds, lossy(88), intro},
        {"banner",
         "tree/data/site/banner.swf",
         {468, 60},
         framesOfBanner,
         frameMilliseconds,
         lossy(80),
         banner},
        {"credits", "tree/data/credits.dat", Credits::size, credits.frames(), creditsMilliseconds, lossless,
         creditsScene}};
    for (const Movie& movie : movies) {
        for (int scale : {1, 2}) paintMovie(output, movie, scale);
    }
}

} // namespace torvane

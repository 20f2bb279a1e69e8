// SPDX-License-Identifier: MIT
// The scan of a picture by rows, and the start of a window's move.
#include "Shaper.h"
#include "platform/forms/Form.h"

#include <QGuiApplication>
#include <QPainter>
#include <QWindow>
#include <vector>

namespace torvane {

namespace {
struct Scan {
    QRgb mask;
    QRgb endOfImage;
    std::vector<QRect> runs;

    void close(int start, int end, int y) {
        if (start > -1) runs.emplace_back(start, y, end - start, 1);
    }

    void row(const QRgb* pixels, int width, int y) {
        int start = -1;
        int x = 0;
        for (; x < width; ++x) {
            const QRgb pixel = pixels[x] & RGB_MASK;
            if (pixel == endOfImage) break;
            if (pixel == mask) {
                close(start, x, y);
                start = -1;
            } else if (start == -1) {
                start = x;
            }
        }
        close(start, x, y);
    }
};

// What the window shows of its own, one pixel of it to one of the image whatever the screen's density.
QImage contentOf(const Form& window) {
    QImage content(window.size(), QImage::Format_RGB32);
    content.fill(Colours::toQColor(window.design().backColour));
    QPainter painter(&content);
    painter.drawPixmap(0, 0, window.picture());
    return content;
}
} // namespace

QRegion shapeOf(const QImage& image, QRgb endOfImage) {
    if (image.isNull()) return {};
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    Scan scan{plain.pixel(0, 0) & RGB_MASK, endOfImage & RGB_MASK, {}};
    for (int y = 0; y < plain.height(); ++y) {
        scan.row(reinterpret_cast<const QRgb*>(plain.constScanLine(y)), plain.width(), y);
    }
    QRegion shape;
    shape.setRects(scan.runs.data(), static_cast<int>(scan.runs.size()));
    return shape;
}

void ShapeForm(Form& window) {
    if (window.picture().isNull()) return;
    const QColor back = Colours::toQColor(window.design().backColour);
    const QRegion shape = shapeOf(contentOf(window), back.rgb());
    // To the windowing system an empty outline means no outline at all: use one pixel outside instead.
    window.setMask(shape.isEmpty() ? QRegion(-1, -1, 1, 1) : shape);
}

void DragForm(Form& window) {
    // Without a held button the window would stick to the pointer until the next click.
    if (QGuiApplication::mouseButtons() == Qt::NoButton) return;
    if (QWindow* handle = window.windowHandle()) handle->startSystemMove();
}

} // namespace torvane

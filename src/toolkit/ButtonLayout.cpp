// SPDX-License-Identifier: MIT
// Layout arithmetic of the skinned button. All divisions are integer divisions.
#include "ButtonLayout.h"

namespace torvane {

namespace {
// Edges as this arithmetic counts them: right and bottom lie one pixel outside.
struct Edges {
    int left;
    int top;
    int right;
    int bottom;

    QRect rect() const { return {left, top, right - left, bottom - top}; }
};

Edges textArea(const CaptionSource& source) {
    const int width = source.client.width();
    const int height = source.client.height();
    const int p = source.picture.width();
    const int q = source.picture.height();
    switch (source.place) {
    case PicturePlace::right: return {1, 1, width - 2 - p, height - 2};
    case PicturePlace::above: return {1, q + 1, width - 2, height - 2};
    case PicturePlace::below: return {1, 1, width - 2, height - 2 - q};
    case PicturePlace::behind: return {1, 1, width - 2, height - 2};
    default: return {p + 1, 1, width - 2, height - 2};
    }
}

QPoint centringShift(const CaptionSource& source, const Edges& text) {
    const int freeWidth = source.client.width() - text.right;
    const int freeHeight = source.client.height() - text.bottom;
    return {(source.place == PicturePlace::right ? freeWidth - source.picture.width() - 4 : freeWidth) / 2,
            (source.place == PicturePlace::below ? freeHeight - source.picture.height() - 4 : freeHeight) /
                2};
}

QPoint picturePlace(const CaptionSource& source, const QRect& caption) {
    const int centredX = (source.client.width() - source.picture.width()) / 2;
    const int centredY = (source.client.height() - source.picture.height()) / 2;
    if (source.blankCaption) return {centredX, centredY};
    switch (source.place) {
    case PicturePlace::right: return {caption.x() + caption.width() + 4, centredY};
    case PicturePlace::above: return {centredX, caption.y() - source.picture.height() - 2};
    case PicturePlace::below: return {centredX, caption.y() + caption.height() + 2};
    case PicturePlace::behind: return {centredX, centredY};
    default: return {caption.x() - source.picture.width() - 4, centredY};
    }
}

// The corner blocks that an outline lacks.
QRegion cornerPixels(QSize size) {
    const int lastX = size.width() - 1;
    const int lastY = size.height() - 1;
    return QRegion(0, 0, 1, 1) + QRegion(lastX, 0, 1, 1) + QRegion(0, lastY, 1, 1) +
           QRegion(lastX, lastY, 1, 1);
}

QRegion roundCorners(QSize size) {
    const int lastX = size.width() - 1;
    const int lastY = size.height() - 1;
    QRegion blocks;
    for (const int y : {0, lastY}) blocks += QRegion(0, y, 2, 1) + QRegion(lastX - 1, y, 2, 1);
    for (const int y : {1, lastY - 1}) blocks += QRegion(0, y, 1, 1) + QRegion(lastX, y, 1, 1);
    return blocks;
}
} // namespace

QRect focusRect(int buttonType, QSize client) {
    const QRect area(QPoint(), client);
    if (buttonType == 14) return area.adjusted(5, 5, -5, -5).translated(1, 1);
    const int inset = buttonType >= 7 && buttonType <= 13 ? 3 : 4;
    return area.adjusted(inset, inset, -inset, -inset);
}

void LayoutCaption(ButtonLayout& layout, const CaptionSource& source, const TextMeasure& measure) {
    Edges text = textArea(source);
    const QSize size = measure(text.right - text.left);
    text.right = text.left + size.width();
    text.bottom = text.top + size.height();
    layout.caption = text.rect().translated(centringShift(source, text));
    layout.captionMoved = layout.caption.translated(1, 1);
    layout.picture = QRect(picturePlace(source, layout.caption), source.picture);
}

QRegion BuildRegion(int buttonType, QSize client) {
    QRegion whole(QRect(QPoint(), client));
    switch (buttonType) {
    case 1:
    case 14: return whole - cornerPixels(client);
    case 3:
    case 4: return whole - roundCorners(client);
    case 5: return whole - QRegion(0, client.height() - 1, 1, 1) - QRegion(client.width() - 1, 0, 1, 1);
    case 13: return QRegion(QRect(QPoint(), client), QRegion::Ellipse);
    default: return whole;
    }
}

} // namespace torvane

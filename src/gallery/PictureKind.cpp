// SPDX-License-Identifier: MIT
// The table of kinds.
#include "PictureKind.h"

#include <array>

namespace torvane {

namespace {
struct Row {
    PictureKind kind;
    const char* extension;
    const char* format;
};
constexpr std::array rows = {
    Row{PictureKind::jpg, "jpg", "JPEG BitMap"}, Row{PictureKind::gif, "gif", "Graphic Interchange Format"},
    Row{PictureKind::bmp, "bmp", "BitMaP"}, Row{PictureKind::png, "png", "Portable Network Graphics"}};
} // namespace

PictureKind pictureKindOf(const QString& fileName, const NameCut& cut) {
    const QString extension = cut.secondPiece(fileName).toLower();
    for (const Row& row : rows) {
        if (extension == QLatin1String(row.extension)) return row.kind;
    }
    return PictureKind::other;
}

QString formatName(PictureKind kind) {
    for (const Row& row : rows) {
        if (row.kind == kind) return QString::fromLatin1(row.format);
    }
    return {};
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Pictures of the skin by name, out of the program's resources, and what all readers of pictures share.
#pragma once

#include <QPixmap>
#include <QString>

namespace torvane::Pictures {

/// The picture of a file name in the resources, such as "close-16.png"; on a dense screen its second
/// set at twice the pixels ("close-16@2x.png"), with the device pixel ratio set. A null pixmap for an
/// empty name and for what is not there.
QPixmap load(const QString& name, qreal devicePixelRatio = 1.0);

/// The same, scaled to the ratio itself where that is neither 1 nor 2, so that it is painted dot for dot. Not
/// for pictures with a mask colour, which would blend with it.
QPixmap loadFitted(const QString& name, qreal devicePixelRatio);

/// The name of a picture's twin with twice the pixels, beside it: "intro@2x.dat" for "intro.dat". Folders may
/// be separated by either slash.
QString denseTwinOf(const QString& name);

/// The bytes of a picture's file in the resources, as it is; empty for what is not there.
QByteArray bytesOf(const QString& name);

/// The name of Qt's reader for a picture, judged by its first bytes: "png", "gif", "jpg", "bmp" or "webp".
/// Empty for anything else.
QByteArray formatOf(const QByteArray& bytes);

/// A picture of a window's design, loaded when it is first asked for: many windows and controls are made
/// and never seen.
class Deferred {
public:
    /// The name lives as long as the program.
    explicit Deferred(const char* name) : m_name(name) {}
    /// A picture that is there already, which may be null. It stays the same for all densities.
    Deferred(const QPixmap& picture) : m_picture(picture) {}

    /// The picture in the set for that ratio: it is loaded again when its window comes to a screen of another
    /// density.
    const QPixmap& picture(qreal devicePixelRatio) const;

private:
    const char* m_name = nullptr; // null when there is nothing to load
    mutable qreal m_ratio = 0.0;  // that the picture was loaded for; 0 before
    mutable QPixmap m_picture;
};

} // namespace torvane::Pictures

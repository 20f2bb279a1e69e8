// SPDX-License-Identifier: MIT
// Loading of skin pictures, names and formats.
#include "Pictures.h"

#include <QFile>
#include <QImageReader>
#include <QtMath>
#include <algorithm>

namespace torvane::Pictures {

namespace {
QPixmap loadFile(const QString& file) {
    if (!QFile::exists(file)) return {};
    // The name gives the format, and the reader is told not to guess: otherwise it would load all image
    // plugins that there are, one after the other, to ask them.
    QImageReader reader(file, file.section(QLatin1Char('.'), -1).toLatin1());
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}
} // namespace

QPixmap load(const QString& name, qreal devicePixelRatio) {
    if (name.isEmpty()) return {};
    const QString file = QStringLiteral(":/art/") + name;
    if (devicePixelRatio > 1.0) {
        QPixmap dense = loadFile(denseTwinOf(file));
        if (!dense.isNull()) {
            dense.setDevicePixelRatio(2.0);
            return dense;
        }
    }
    return loadFile(file);
}

QPixmap loadFitted(const QString& name, qreal devicePixelRatio) {
    QPixmap picture = load(name, devicePixelRatio);
    const qreal ratio = picture.devicePixelRatio();
    if (picture.isNull() || ratio == devicePixelRatio || ratio == 1.0) return picture;
    const QSizeF wanted = QSizeF(picture.size()) / ratio * devicePixelRatio;
    // Rounded up: the last row would show the ground otherwise.
    const QSize dots(qCeil(wanted.width()), qCeil(wanted.height()));
    picture = picture.scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

QByteArray bytesOf(const QString& name) {
    QFile file(QStringLiteral(":/art/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString denseTwinOf(const QString& name) {
    const qsizetype slash = std::max(name.lastIndexOf(QLatin1Char('/')), name.lastIndexOf(QLatin1Char('\\')));
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return QString(name).insert(dot > slash ? dot : name.size(), QStringLiteral("@2x"));
}

QByteArray formatOf(const QByteArray& bytes) {
    if (bytes.startsWith("\x89PNG")) return QByteArrayLiteral("png");
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a")) return QByteArrayLiteral("gif");
    if (bytes.startsWith("\xFF\xD8\xFF")) return QByteArrayLiteral("jpg");
    if (bytes.startsWith("RIFF") && bytes.mid(8).startsWith("WEBP")) return QByteArrayLiteral("webp");
    return bytes.startsWith("BM") ? QByteArrayLiteral("bmp") : QByteArray();
}

const QPixmap& Deferred::picture(qreal devicePixelRatio) const {
    if (m_name != nullptr && m_ratio != devicePixelRatio) {
        m_ratio = devicePixelRatio;
        m_picture = loadFitted(QString::fromLatin1(m_name), devicePixelRatio);
    }
    return m_picture;
}

} // namespace torvane::Pictures

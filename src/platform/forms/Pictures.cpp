// SPDX-License-Identifier: MIT
// Loading of skin pictures.
#include "Pictures.h"

#include <QFile>
#include <QImageReader>
#include <utility>

namespace torvane::Pictures {

namespace {
QPixmap loadFile(const QString& file) {
    if (!QFile::exists(file)) return {};
    // The format is told by the name, and the reader asked not to doubt it: else it would load all image
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
        const qsizetype dot = file.lastIndexOf(QLatin1Char('.'));
        QPixmap dense = loadFile(file.first(dot) + QStringLiteral("@2x") + file.sliced(dot));
        if (!dense.isNull()) {
            dense.setDevicePixelRatio(2.0);
            return dense;
        }
    }
    return loadFile(file);
}

const QPixmap& Deferred::picture(qreal devicePixelRatio) const {
    if (m_name != nullptr)
        m_picture = load(QString::fromLatin1(std::exchange(m_name, nullptr)), devicePixelRatio);
    return m_picture;
}

void Deferred::replace(const QPixmap& picture) {
    m_name = nullptr;
    m_picture = picture;
}

} // namespace torvane::Pictures

// SPDX-License-Identifier: MIT
// Moving pictures over the toolkit's movie class.
#include "MoviePlayer.h"
#include "../base/File.h"
#include "../base/Paths.h"
#include "../base/RuntimeFailure.h"
#include "Download.h"

#include <QBuffer>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace torvane {

namespace {
constexpr qint64 largestMovie = 16 << 20;
constexpr int restMilliseconds = 30; // in which the window comes to stand before a movie is looked for
const QString fileScheme = QStringLiteral("file://");

// The name of the toolkit's reader for the content; empty for what the player doesn't show.
QByteArray formatOf(const QByteArray& bytes) {
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a")) return QByteArrayLiteral("gif");
    if (bytes.startsWith("RIFF") && bytes.mid(8).startsWith("WEBP")) return QByteArrayLiteral("webp");
    return {};
}

QByteArray contentOf(const QString& path) {
    QByteArray bytes;
    ignoring([&] {
        const File file(path);
        if (file.length() <= largestMovie) bytes = file.readAll();
    });
    return bytes;
}

// Where the same movie may lie in twice the pixels: "intro@2x.dat" beside "intro.dat".
QString denseTwinOf(const QString& path) {
    const qsizetype name = std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    return QString(path).insert(dot > name ? dot : path.size(), QStringLiteral("@2x"));
}
} // namespace

MoviePlayer::MoviePlayer(QWidget& parent, const char* name, const DesignRect& rect)
    : Control(parent, name, rect) {}

MoviePlayer::~MoviePlayer() = default;

void MoviePlayer::setMovie(const QString& location) {
    m_location = location;
    m_movie.reset();
    m_bytes.reset();
    m_roundHasFrames = false;
    update();
}

void MoviePlayer::Play() {
    m_wanted = true;
    update();
}

void MoviePlayer::load() {
    if (m_location.startsWith(fileScheme)) {
        const QByteArray path = m_location.sliced(fileScheme.size()).toUtf8();
        loadFile(Paths::spelled(QByteArray::fromPercentEncoding(path)));
    } else if (m_location.contains(QStringLiteral("://"))) {
        Download::start(*this, m_location, largestMovie, [this, asked = m_location](const QByteArray& bytes) {
            if (asked == m_location) start(bytes); // else another movie has been set meanwhile
        });
    } else {
        loadFile(m_location);
    }
}

void MoviePlayer::loadFile(const QString& path) {
    const QByteArray dense = devicePixelRatioF() > 1.0 ? contentOf(denseTwinOf(path)) : QByteArray();
    start(formatOf(dense).isEmpty() ? contentOf(path) : dense);
}

void MoviePlayer::start(const QByteArray& bytes) {
    const QByteArray format = formatOf(bytes);
    if (!format.isEmpty()) {
        m_bytes = std::make_unique<QBuffer>();
        m_bytes->setData(bytes);
        m_bytes->open(QIODevice::ReadOnly);
        m_movie = std::make_unique<QMovie>(m_bytes.get(), format);
        m_movie->setCacheMode(QMovie::CacheNone);
        connect(m_movie.get(), &QMovie::frameChanged, this, &MoviePlayer::showFrame);
        connect(m_movie.get(), &QMovie::finished, this, &MoviePlayer::goOn);
        m_movie->start();
    }
    emit readyStateChanged();
}

void MoviePlayer::showFrame() {
    m_roundHasFrames = true;
    update();
}

// Some movies ask for one round; here they go on for as long as the window stands. A round without a
// frame means that the movie is broken: it would end again at once, and for ever.
void MoviePlayer::goOn() {
    if (std::exchange(m_roundHasFrames, false)) m_movie->start();
}

void MoviePlayer::paintEvent(QPaintEvent*) {
    if (m_wanted) {
        m_wanted = false;
        QTimer::singleShot(restMilliseconds, this, &MoviePlayer::load);
    }
    if (!m_movie || !m_movie->isValid()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // between two densities no frame fits dot for dot
    painter.drawPixmap(rect(), m_movie->currentPixmap());
}

void MoviePlayer::mousePressEvent(QMouseEvent*) { emit Click(); }

} // namespace torvane

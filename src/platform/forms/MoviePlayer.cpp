// SPDX-License-Identifier: MIT
// Loading and playing.
#include "MoviePlayer.h"
#include "../base/File.h"
#include "../base/Paths.h"
#include "../base/RuntimeFailure.h"
#include "Download.h"
#include "MovieFrames.h"
#include "Pictures.h"

#include <QPainter>
#include <QWindow>

namespace torvane {

namespace {
constexpr qint64 largestMovie = 16 << 20;
constexpr int loadDelay = 30; // ms in which the window gets painted before a movie is loaded
const QString fileScheme = QStringLiteral("file://");

// The name of Qt's reader for the content; empty for what the player doesn't show.
QByteArray movieFormatOf(const QByteArray& bytes) {
    const QByteArray format = Pictures::formatOf(bytes);
    return format == "gif" || format == "webp" ? format : QByteArray();
}

QByteArray contentOf(const QString& path) {
    QByteArray bytes;
    ignoring([&] {
        const File file(path);
        if (file.length() <= largestMovie) bytes = file.readAll();
    });
    return bytes;
}
} // namespace

MoviePlayer::MoviePlayer(QWidget& parent, const char* name, const DesignRect& rect)
    : Control(parent, name, rect) {
    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &MoviePlayer::showNext);
}

MoviePlayer::~MoviePlayer() = default;

void MoviePlayer::setMovie(const QString& location) {
    m_location = location;
    m_clock.stop();
    m_frames.reset();
    m_frame = QImage();
    setAttribute(Qt::WA_OpaquePaintEvent, false);
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
    m_wantsDense = devicePixelRatioF() > 1.0;
    const QByteArray dense = m_wantsDense ? contentOf(Pictures::denseTwinOf(path)) : QByteArray();
    start(movieFormatOf(dense).isEmpty() ? contentOf(path) : dense);
}

void MoviePlayer::start(const QByteArray& bytes) {
    const QByteArray format = movieFormatOf(bytes);
    if (!format.isEmpty()) {
        m_frames = std::make_unique<MovieFrames>(bytes, format);
        m_frameTime = 0;
        m_clock.stop();
        if (isSeen()) showNext(); // else it begins when it is
    }
    emit readyStateChanged();
}

void MoviePlayer::showNext() {
    const MovieFrames::Frame next = m_frames->next();
    if (next.image.isNull()) {
        m_frames.reset();
        return;
    }
    m_frame = next.image;
    m_frameTime = next.milliseconds;
    setAttribute(Qt::WA_OpaquePaintEvent, !m_frame.hasAlphaChannel());
    update();
    playOrRest();
}

bool MoviePlayer::isPlaying() const { return m_clock.isActive() || (m_frames && m_frames->isStill()); }

// What lies behind another program's window counts as seen: the desktop does not report that.
bool MoviePlayer::isSeen() const {
    const QWindow* native = window()->windowHandle();
    return native != nullptr && native->isExposed() && !(native->windowStates() & Qt::WindowMinimized) &&
           !visibleRegion().isEmpty();
}

// Called whenever that may have changed. A movie goes on after the frame where it came to rest.
void MoviePlayer::playOrRest() {
    if (!m_frames || m_frames->isStill()) return;
    if (!isSeen()) {
        m_clock.stop();
    } else if (!m_clock.isActive()) {
        m_clock.start(m_frameTime);
    }
}

void MoviePlayer::showEvent(QShowEvent* event) {
    // Done at each show: the window may have got another native one.
    if (QWindow* native = window()->windowHandle()) native->installEventFilter(this);
    playOrRest();
    Control::showEvent(event);
}

void MoviePlayer::hideEvent(QHideEvent* event) {
    playOrRest();
    Control::hideEvent(event);
}

bool MoviePlayer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose || event->type() == QEvent::WindowStateChange) playOrRest();
    return Control::eventFilter(watched, event);
}

// On a screen of another density the file's twin goes on in its place. A download has no twin.
void MoviePlayer::followDensity() {
    const bool isFile = m_location.startsWith(fileScheme) || !m_location.contains(QStringLiteral("://"));
    if (!m_frames || !isFile || m_wantsDense == (devicePixelRatioF() > 1.0)) return;
    m_wantsDense = !m_wantsDense;
    QTimer::singleShot(loadDelay, this, &MoviePlayer::load);
}

void MoviePlayer::paintEvent(QPaintEvent*) {
    followDensity();
    playOrRest(); // it may have come out from behind another control
    if (m_wanted) {
        m_wanted = false;
        QTimer::singleShot(loadDelay, this, &MoviePlayer::load);
    }
    if (m_frame.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // between two densities no frame fits dot for dot
    painter.drawImage(rect(), m_frame);
}

void MoviePlayer::mousePressEvent(QMouseEvent*) { emit Click(); }

} // namespace torvane

// SPDX-License-Identifier: MIT
// Plays a moving picture in a loop: an animated GIF or WebP, told by its content and not by its name. For
// anything else, and for what is missing or broken, it stays empty. It begins to load once it is on the
// screen, so that no window waits for it.
#pragma once

#include "Control.h"

#include <QMovie>
#include <memory>

class QBuffer;

namespace torvane {

class MoviePlayer : public Control {
    Q_OBJECT

public:
    MoviePlayer(QWidget& parent, const char* name, const DesignRect& rect);
    ~MoviePlayer() override;

    QString kind() const override { return QStringLiteral("Flash player"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Animation; }

    /// The spelled path of the movie, or an address (file, http or https). On a dense screen the file's twin
    /// with twice the pixels is played, "name@2x.ending" beside it, if there is one; its size on the form is
    /// the same.
    void setMovie(const QString& location);
    const QString& Movie() const { return m_location; }
    void Play();
    /// Whether frames are being shown.
    bool isPlaying() const { return m_movie && m_movie->state() == QMovie::Running; }

signals:
    /// The player has begun to play or has found nothing to play.
    void readyStateChanged();
    void Click();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void load();
    void loadFile(const QString& path);
    void start(const QByteArray& bytes);
    void showFrame();
    void goOn();

    QString m_location;
    bool m_wanted = false;
    bool m_roundHasFrames = false;
    std::unique_ptr<QBuffer> m_bytes;
    std::unique_ptr<QMovie> m_movie;
};

} // namespace torvane

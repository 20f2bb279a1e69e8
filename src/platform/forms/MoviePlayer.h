// SPDX-License-Identifier: MIT
// Plays a moving picture in a loop: an animated GIF or WebP, judged by its content and not by its name. For
// anything else, and for what is missing or broken, it stays empty. It begins to load once it is on the
// screen, so that no window waits for it, and rests while it is not.
#pragma once

#include "Control.h"

#include <QImage>
#include <QTimer>
#include <memory>

namespace torvane {

class MovieFrames;

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
    /// Whether a movie is being shown. One that moves rests, and is not, while nobody can see it.
    bool isPlaying() const;

signals:
    /// The player has begun to play or has found nothing to play.
    void readyStateChanged();
    void Click();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void load();
    void loadFile(const QString& path);
    void start(const QByteArray& bytes);
    void showNext();
    bool isSeen() const;
    void playOrRest();

    void followDensity();

    QString m_location;
    bool m_wantsDense = false; // loaded on a dense screen
    bool m_wanted = false;
    std::unique_ptr<MovieFrames> m_frames;
    QImage m_frame;
    int m_frameTime = 0; // ms
    QTimer m_clock;
};

} // namespace torvane

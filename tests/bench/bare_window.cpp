// SPDX-License-Identifier: MIT
// The minimal window of the main window's size: the same background picture and one line of text, directly in
// Qt. Torvane's start is measured against it.
// Usage: bench_bare_window MILLISECONDS, the time that the window stays open.
#include "FirstFrame.h"
#include "WindowPlace.h"
#include "art/ArtResources.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>
#include <cstdlib>

namespace {
class BareWindow : public QWidget {
public:
    BareWindow() : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFixedSize(torvane::bench::windowSize);
        move(torvane::bench::cornerOn(screen()->geometry()));
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawPixmap(0, 0, m_picture);
        painter.setPen(Qt::white);
        painter.drawText(26, 15, QStringLiteral("Torvane 1.1"));
    }

private:
    QPixmap m_picture{QStringLiteral(":/art/MainFrm.jpg")};
};
} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    torvane::initArtResources();
    BareWindow window;
    torvane::bench::FirstFrame frame(window, argc > 1 ? std::atoi(argv[1]) : 0, [] { return true; });
    window.show();
    return QApplication::exec();
}

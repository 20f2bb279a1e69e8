// SPDX-License-Identifier: MIT
// The tray icon over Qt's own.
#include "TrayIcon.h"
#include "../base/File.h"
#include "../base/RuntimeFailure.h"
#include "Form.h"
#include "Pictures.h"
#include "PopupMenu.h"
#include "WindowingSystem.h"

#include <QBuffer>
#include <QCursor>
#include <QIcon>
#include <QImageReader>
#include <QSystemTrayIcon>
#include <QTimer>

namespace torvane {

namespace {
constexpr qint64 largestPicture = 4 << 20;
constexpr int restMilliseconds = 100; // by then the first window is on screen

// Without a tray on the session bus Qt looks for the old kind, which Wayland lacks, and warns about it.
bool canHaveIcon() { return !WindowingSystem::isWayland() || QSystemTrayIcon::isSystemTrayAvailable(); }

// A null pixmap for what is no picture.
QPixmap pictureOf(QByteArray& bytes) {
    const QByteArray format = Pictures::formatOf(bytes);
    if (format.isEmpty()) return {};
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false); // else it would load all image plugins, to ask them
    return QPixmap::fromImageReader(&reader);
}
} // namespace

TrayIcon::TrayIcon(Form& form, const char* name, const char* toolTip)
    : Component(form, name), m_toolTip(QString::fromUtf8(toolTip)) {}

TrayIcon::~TrayIcon() = default;

void TrayIcon::setPicture(const QString& path) {
    QByteArray bytes = File(path).readAt(0, largestPicture);
    const QPixmap picture = pictureOf(bytes);
    if (picture.isNull()) throw RuntimeFailure(RuntimeFailure::invalidPicture);
    m_picture = picture;
    settle();
}

void TrayIcon::setShown(bool shown) {
    m_shown = shown;
    settle();
}

void TrayIcon::makeIcon() {
    m_icon = std::make_unique<QSystemTrayIcon>();
    m_icon->setToolTip(m_toolTip);
    if (m_menu != nullptr) m_icon->setContextMenu(&m_menu->shown());
    connect(m_icon.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) emit clicked();
                if (reason == QSystemTrayIcon::Context) popUpMenu();
            });
}

// Over XEmbed Qt has opened the menu by now, and most desktops show it themselves. Others only say that the
// user wants it.
void TrayIcon::popUpMenu() {
    if (m_menu != nullptr && !m_menu->isOpen()) m_menu->popUp(QCursor::pos());
}

void TrayIcon::settle() {
    if (m_settling) return;
    m_settling = true;
    QTimer::singleShot(restMilliseconds, this, [this] {
        m_settling = false;
        const bool wanted = m_shown && !m_picture.isNull() && canHaveIcon();
        if (!wanted) {
            m_icon.reset();
            return;
        }
        if (!m_icon) makeIcon();
        m_icon->setIcon(QIcon(m_picture));
        m_icon->show();
    });
}

} // namespace torvane

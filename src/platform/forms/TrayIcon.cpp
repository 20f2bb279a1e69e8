// SPDX-License-Identifier: MIT
// The tray icon over the toolkit's own.
#include "TrayIcon.h"
#include "../base/File.h"
#include "../base/RuntimeFailure.h"
#include "Form.h"

#include <QIcon>
#include <QSystemTrayIcon>
#include <QTimer>

namespace torvane {

namespace {
constexpr qint64 largestPicture = 4 << 20;
}

TrayIcon::TrayIcon(Form& form, const char* name, const char* toolTip)
    : Component(form, name), m_toolTip(QString::fromUtf8(toolTip)) {}

TrayIcon::~TrayIcon() = default;

void TrayIcon::setPicture(const QString& path) {
    QPixmap picture;
    if (!picture.loadFromData(File(path).readAt(0, largestPicture))) {
        throw RuntimeFailure(RuntimeFailure::invalidPicture);
    }
    m_picture = picture;
    settle();
}

void TrayIcon::setShown(bool shown) {
    m_shown = shown;
    settle();
}

void TrayIcon::settle() {
    if (m_settling) return;
    m_settling = true;
    QTimer::singleShot(0, this, [this] {
        m_settling = false;
        const bool wanted = m_shown && !m_picture.isNull();
        if (!wanted) {
            m_icon.reset();
            return;
        }
        if (!m_icon) m_icon = std::make_unique<QSystemTrayIcon>();
        m_icon->setIcon(QIcon(m_picture));
        m_icon->setToolTip(m_toolTip);
        m_icon->show();
    });
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The program's icon in the desktop's tray. It is set up a moment later than it is asked for, since
// asking the desktop for its tray takes longer than showing a window.
#pragma once

#include "Control.h"

#include <QPixmap>
#include <memory>

class QSystemTrayIcon;

namespace torvane {

class PopupMenu;

class TrayIcon : public Component {
    Q_OBJECT

public:
    TrayIcon(Form& form, const char* name, const char* toolTip);
    ~TrayIcon() override;

    QString kind() const override { return QStringLiteral("TrayIcon"); }
    QString toolTip() const { return m_toolTip; }

    /// Takes the picture of a file (of any format of Pictures, by its content; spelled path). Fails if there
    /// is no such file or no picture in it; the old picture stays then.
    void setPicture(const QString& path);
    const QPixmap& picture() const { return m_picture; }
    /// Shows or removes the icon.
    void setShown(bool shown);
    bool isShown() const { return m_shown; }
    /// The menu that the right button opens. Desktops that show it themselves get it, too. It
    /// outlives the icon.
    void setMenu(PopupMenu& menu) { m_menu = &menu; }

signals:
    /// The user has pressed the left button on the icon, or what the desktop takes for that.
    void clicked();

private:
    void settle();
    void makeIcon();
    void popUpMenu();

    QString m_toolTip;
    QPixmap m_picture;
    bool m_shown = false;
    bool m_settling = false;
    PopupMenu* m_menu = nullptr;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace torvane

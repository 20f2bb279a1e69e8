// SPDX-License-Identifier: MIT
// The signs of message boxes.
#include "DesktopStyle.h"

#include <QFile>

namespace torvane {

namespace {
QString signName(QStyle::StandardPixmap kind) {
    switch (kind) {
    case QStyle::SP_MessageBoxInformation: return QStringLiteral("information");
    case QStyle::SP_MessageBoxQuestion: return QStringLiteral("question");
    case QStyle::SP_MessageBoxWarning: return QStringLiteral("warning");
    case QStyle::SP_MessageBoxCritical: return QStringLiteral("critical");
    default: return {};
    }
}
} // namespace

// Other styles of a desktop take their colours from pictures and would ignore the palette.
DesktopStyle::DesktopStyle(const QString& signs) : QProxyStyle(QStringLiteral("Fusion")), m_signs(signs) {}

// Qt has its signs at one size, and those of a desktop's theme may be made for light boxes.
QIcon DesktopStyle::standardIcon(StandardPixmap kind, const QStyleOption* option,
                                 const QWidget* widget) const {
    const QString name = signName(kind);
    const QString file = name.isEmpty() ? name : QString(m_signs).replace(QStringLiteral("%1"), name);
    if (!name.isEmpty() && QFile::exists(file)) return QIcon(file);
    return QProxyStyle::standardIcon(kind, option, widget);
}

int DesktopStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* answer) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
}

} // namespace torvane

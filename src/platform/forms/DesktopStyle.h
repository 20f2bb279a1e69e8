// SPDX-License-Identifier: MIT
// How Qt paints what the program does not paint itself: message boxes and file dialogs.
#pragma once

#include <QProxyStyle>

namespace torvane {

/// A style that takes its colours from the palette alone and the signs of message boxes from files. Its push
/// buttons have no pictures, as the program's own have none beside such words.
class DesktopStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// @param signs a file name with "%1" for information, question, warning or critical; "name@2x" beside it
    ///     serves dense screens. A file that is not there leaves Qt's own picture.
    explicit DesktopStyle(const QString& signs);

    QIcon standardIcon(StandardPixmap kind, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;

private:
    QString m_signs;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// A picture at a fixed place; lies under all other controls and lets the mouse through.
#pragma once

#include "Control.h"
#include "Pictures.h"

#include <QPixmap>

namespace torvane {

class Image : public Control {
    Q_OBJECT

public:
    /// The picture is a name in the resources (see Pictures) or empty.
    Image(QWidget& parent, const char* name, const DesignRect& rect, const char* picture = "",
          bool visible = true);

    QString kind() const override { return QStringLiteral("image"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }
    /// Never: images are ornaments here, or stores.
    bool isExposed() const override { return false; }
    const QPixmap& Picture() const { return m_picture.picture(devicePixelRatioF()); }
    /// What it shows, for another control or a window that is to show the same.
    const Pictures::Deferred& deferred() const { return m_picture; }
    void setPicture(const Pictures::Deferred& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Pictures::Deferred m_picture;
};

} // namespace torvane

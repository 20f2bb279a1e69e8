// SPDX-License-Identifier: MIT
// The pictures of a list's rows, by number from 1. Each is loaded at its first use.
#pragma once

#include "Control.h"

#include <QPixmap>
#include <vector>

namespace torvane {

class ImageList : public Component {
    Q_OBJECT

public:
    /// The pictures are names in the resources (see Pictures).
    ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures);

    QString kind() const override { return QStringLiteral("image list"); }
    /// The picture of a number; null for numbers that have none.
    const QPixmap& picture(int number);

private:
    std::vector<QString> m_names;
    std::vector<QPixmap> m_pictures;
    QPixmap m_none;
    qreal m_ratio;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The pictures of a list's rows, by number from 1. Each is loaded at its first use, and again for another
// density.
#pragma once

#include "Control.h"
#include "Pictures.h"

#include <vector>

namespace torvane {

class ImageList : public Component {
    Q_OBJECT

public:
    /// The pictures are names in the resources (see Pictures), which live as long as the program.
    ImageList(Form& form, const char* name, std::initializer_list<const char*> pictures);

    QString kind() const override { return QStringLiteral("image list"); }
    /// The picture of a number; null for numbers that have none.
    const QPixmap& picture(int number);

private:
    const QWidget& m_window;
    std::vector<Pictures::Deferred> m_pictures;
    QPixmap m_none;
};

} // namespace torvane

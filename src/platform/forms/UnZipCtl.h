// SPDX-License-Identifier: MIT
// The unpacker of archives as a part of a window.
#pragma once

#include "../base/UnZip.h"
#include "Control.h"

namespace torvane {

class UnZipCtl : public Component {
    Q_OBJECT

public:
    UnZipCtl(Form& form, const char* name) : Component(form, name) {}

    QString kind() const override { return QStringLiteral("UnZip"); }

    UnZip engine;
};

} // namespace torvane

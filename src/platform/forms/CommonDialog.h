// SPDX-License-Identifier: MIT
// The file dialog of a form. Asks through the form's doors to the outside, so that tests can answer.
#pragma once

#include "../base/Seams.h"
#include "Control.h"

namespace torvane {

class CommonDialog : public Component {
    Q_OBJECT

public:
    CommonDialog(Form& form, const char* name);

    QString kind() const override { return QStringLiteral("CommonDialog"); }
    /// See FileDialogs.
    QString ShowOpen(const FileQuestion& question);
    QString ShowSave(const FileQuestion& question);
    QString ShowFolder(const FileQuestion& question);

private:
    FileDialogs& m_dialogs;
};

} // namespace torvane

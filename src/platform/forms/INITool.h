// SPDX-License-Identifier: MIT
// The reader of the program's own INI files, whose text is in code page 1252.
#pragma once

#include "Control.h"

namespace torvane {

class INITool : public Component {
    Q_OBJECT

public:
    INITool(Form& form, const char* name) : Component(form, name) {}

    QString kind() const override { return QStringLiteral("INITool"); }
    /// The text of a value in a file (spelled path); empty if file, section or key is missing.
    QString Read(const QString& section, const QString& key, const QString& file) const;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The window that is never shown. It is created by the first look-up of a text and stays to the end, for
// it holds the reader through which all language files are read.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/INITool.h"

namespace torvane {

class Menuing : public Form {
    Q_OBJECT

public:
    explicit Menuing(Runtime& runtime);

    INITool INITool1{*this, "INITool1"};

    /// Does nothing; kept for callers that want to be sure that the window is there.
    void LoadMenu() {}
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The choice of the language: shows what each language file says of itself, makes one the current file, adds
// and deletes files. Windows that are open keep their texts.
#pragma once

#include "SelLang.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"

#include <QShortcut>

namespace torvane {

class SelLang : public SelLangDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::SelLang;

    explicit SelLang(const Services& services);

    /// Runs once after construction.
    void Load();

private:
    void wireControls();
    void File1_Click();
    void ChameleonButton2_Click();
    void ChameleonButton3_Click();
    void ChameleonButton4_Click();
    void ChameleonButton17_Click();
    QString info(const char* key) const;

    const Services& m;
    const Texts text{m.language, "SelLang"};
    QShortcut m_escape{Qt::Key_Escape, this};
    QString SelectedFile; // the spelled path of the file that was clicked last; empty for none
};

} // namespace torvane

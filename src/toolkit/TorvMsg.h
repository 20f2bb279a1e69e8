// SPDX-License-Identifier: MIT
// The program's own yes-or-no question: stands without blocking anybody, and acts by itself.
#pragma once

#include "TorvMsg.design.h"
#include "core/Desk.h"
#include "core/LanguageTables.h"

#include <functional>

namespace torvane {

class TorvMsg : public TorvMsgDesign {
    Q_OBJECT

public:
    /// `deleteRom` deletes the file of a path and refreshes what shows it.
    TorvMsg(Runtime& runtime, Desk& desk, const LanguageTables& language,
            std::function<void(const QString&)> deleteRom);

    /// Runs once after construction.
    void Load();
    /// Shows the question and returns. Action words, in any case: "exit" ends the program on yes, "delete"
    /// deletes the file of `Data` on yes, any other word only closes the window.
    void MakeMSG(const QString& Message, const QString& Action, const QString& Data);

protected:
    /// The window manager's close means no.
    void queryUnload() override { chameleonButton3_Click(); }

private:
    void chameleonButton2_Click();
    void chameleonButton3_Click();

    Desk& m_desk;
    const LanguageTables& m_language;
    std::function<void(const QString&)> m_deleteRom;
    QString m_action;
    QString m_data;
};

} // namespace torvane

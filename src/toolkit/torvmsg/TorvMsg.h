// SPDX-License-Identifier: MIT
// The program's own yes-or-no question: blocks nobody, and acts by itself.
#pragma once

#include "TorvMsg.design.h"
#include "core/Services.h"
#include "core/Window.h"

namespace torvane {

class TorvMsg : public TorvMsgDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::TorvMsg;

    explicit TorvMsg(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Puts a question into the window, which the desk has shown, and returns. Action words, in any case:
    /// "exit" ends the program on yes, "delete" deletes the file of `Data` on yes, any other word only
    /// closes the window.
    void MakeMSG(const QString& Message, const QString& Action, const QString& Data);
    /// What another window asks: message, action word, data.
    void take(const QStringList& question) {
        MakeMSG(question.value(0), question.value(1), question.value(2));
    }

protected:
    /// The window manager's close means no.
    void queryUnload() override { chameleonButton3_Click(); }

private:
    void chameleonButton2_Click();
    void chameleonButton3_Click();

    const Services& m;
    QString m_action;
    QString m_data;
};

} // namespace torvane

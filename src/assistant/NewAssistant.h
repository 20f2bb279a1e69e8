// SPDX-License-Identifier: MIT
// The assistant that brings games into the library: one file or the games of a folder. It types its texts,
// asks whether to delete the originals, and refreshes the list of the main window when it closes.
#pragma once

#include "NewAssistant.design.h"
#include "catalogue/AddNewROM.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"
#include "platform/forms/Busy.h"
#include "toolkit/Typewriter.h"

namespace torvane {

class NewAssistant : public NewAssistantDesign {
    Q_OBJECT

public:
    static constexpr Window id = Window::NewAssistant;

    explicit NewAssistant(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Starts to type the message, one character per tick, replacing what was typed before.
    void ShowDialog(const QString& message) { m_typewriter.type(message); }
    /// What the user has dropped or named at a start, by spelled paths: a file becomes the chosen one, a
    /// folder is copied. A pending question about originals is answered with "keep". Of several each waits
    /// until the one before it is copied and its question is answered; while one waits, or games are being
    /// copied, what comes later waits, too. Closing the window while a file is chosen drops those that wait.
    void take(const QStringList& paths);

protected:
    /// The window manager's close does what the button does.
    void queryUnload() override { ChameleonButton2_Click(); }
    void onUnload() override;

private:
    void wireControls();
    void Timer1_Tick() { m_typewriter.tick(); }
    void File1_Click();
    void AddFile_Click();
    void AddDir_Click();
    void Browse_Click();
    void chameleonButton1_Click();
    void ChameleonButton2_Click();
    void chameleonButton3_Click();
    void ChameleonButton5_Click();
    void ChameleonButton6_Click();

    void showChoice();
    void showQuestion(const char* firstKey);
    void showFailure();
    void choose(const QString& path);
    void takePath(const QString& path);
    void takeWaiting();
    void workEnded(const std::function<void()>& goOn);
    void addFile();
    void addFolder(const QString& folder);
    void copyFile();
    void copyFolder(const QString& folder);
    void finishPages();
    void showKept(const std::vector<KeptSource>& kept);
    QString lineOf(const KeptSource& kept) const;
    QString pageText(const char* first, const char* second, const char* third) const;

    const Services& m;
    const Texts text{m.language, "Assistant"};
    Typewriter m_typewriter{Label2, Timer1};
    AddNewROM m_adding{m.globals};
    int Page = 1;
    int FromFolder = 0;
    QString m_chosen; // the file of the dialog, which is copied whatever the text box says
    Busy m_copying{*this};
    QStringList m_waiting; // taken while games were being copied, or with others
};

} // namespace torvane

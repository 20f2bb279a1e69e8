// SPDX-License-Identifier: MIT
// The assistant that brings games into the library: one file or the games of a folder. It types its texts,
// asks whether the originals may go, and when it closes the main window lists anew.
#pragma once

#include "NewAssistant.design.h"
#include "catalogue/AddNewROM.h"
#include "core/Desk.h"
#include "core/LanguageTables.h"
#include "toolkit/Typewriter.h"

namespace torvane {

/// What the window works with; all of it outlives the window.
struct NewAssistantParts {
    Runtime& runtime;
    Desk& desk;
    const Globals& globals;
    const LanguageTables& language;
};

class NewAssistant : public NewAssistantDesign {
    Q_OBJECT

public:
    explicit NewAssistant(const NewAssistantParts& parts);

    /// Runs once after construction.
    void Load();
    /// Starts to type the text, one character per tick, in the place of what was typed before.
    void ShowDialog(const QString& text) { m_typewriter.type(text); }
    /// What the user has dropped, by its spelled path: a file becomes the chosen one, a folder is copied. A
    /// pending question about originals is answered with "keep". While games are being copied nothing
    /// happens.
    void take(const QString& path);

protected:
    /// The window manager's close leaves as the button does.
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
    void addFile();
    void addFolder(const QString& folder);
    void copyFile();
    void copyFolder(const QString& folder);
    void finishPages();
    QString text(const char* key) const;
    QString pageText(const char* first, const char* second, const char* third) const;

    NewAssistantParts m;
    Typewriter m_typewriter{Label2, Timer1};
    AddNewROM m_adding{m.globals};
    int Page = 1;
    int FromFolder = 0;
    QString m_chosen;      // the file of the dialog, which is copied whatever the text box says
    bool m_isBusy = false; // games are being copied, and events served meanwhile
    bool m_isToLeave = false;
};

} // namespace torvane

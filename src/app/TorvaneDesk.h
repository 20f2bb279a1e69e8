// SPDX-License-Identifier: MIT
// Which window opens which, and which comes back: the whole way through the program in one file.
#pragma once

#include "core/Desk.h"

namespace torvane {

class Program;

class TorvaneDesk : public Desk {
public:
    explicit TorvaneDesk(Program& program) : m_program(program) {}

    bool exists(Window window) const override;
    void go(Window from, Window to) override;
    void startApplication() override;
    void introEnded() override;
    void openArchive(const QString& path, const QString& name) override;
    void bringBackMainWindow() override;
    void addGames(const QString& path) override;
    void gamesAdded() override;
    void reopenMainWindow() override;
    void makeMSG(const QString& message, const QString& action, const QString& data) override;
    Form* visibleMainWindow() const override;
    void disableMainWindow() override;
    void enableVisibleMainWindow() override;
    void endProgram() override;

private:
    /// A window of this program by its name, created if need be; null for those that it does not have.
    Form* form(Window window);
    /// The same without creating it.
    Form* formIfLoaded(Window window) const;
    int numberSetting(const char* key, const char* absent) const;
    /// The window that the user's setting wants first.
    Window firstWindow() const;

    Program& m_program;
};

} // namespace torvane

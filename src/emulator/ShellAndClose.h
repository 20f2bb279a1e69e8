// SPDX-License-Identifier: MIT
// The start of a game: from one unquoted command line to a program and its arguments, and the wait.
#pragma once

#include "core/Pieces.h"
#include "platform/base/Seams.h"

#include <functional>
#include <utility>

namespace torvane {

/// What the launch action does with a selected file.
enum class LaunchWay {
    nothing,       ///< no file is selected
    zipViewer,     ///< an archive, and the user wants to look into archives
    straight,      ///< an archive for the emulator: the window stays as it is
    withMinimising ///< a game: the window is out of the way while it is played
};

class ShellAndClose {
public:
    /// `screenshots` gives the spelled path of the gallery's folder.
    explicit ShellAndClose(ProcessRunner& processes, std::function<QString()> screenshots = {})
        : m_processes(processes), m_screenshots(std::move(screenshots)) {}

    /// Starts the program of a command line and returns when it has ended. Blocks the whole interface on
    /// purpose. A line that names no program does nothing; failures are not reported. The program finds the
    /// gallery's folder as a native path in the environment, as TORVANE_SCREENSHOTS.
    void RunAndWait(const QString& commandLine);

    /// Plays a game: the command line is the emulator's path, a blank and the game's path, without quotes.
    void play(const QString& emulator, const QString& game) {
        RunAndWait(emulator + QLatin1Char(' ') + game);
    }

    /// The way to launch a file by its bare name and the setting `zip` (read only for an archive).
    static LaunchWay launchWay(const QString& fileName, const NameCut& cut,
                               const std::function<int()>& zipSetting);

    struct Command {
        QString program; ///< spelled path; empty if no piece of the line names a program
        QByteArrayList arguments;
    };
    /// Cuts a command line: the program is the shortest piece up to a blank that names one, the rest is
    /// cut at every single blank. Two blanks in a row give an empty argument, so that joining the arguments
    /// with blanks gives the line again. Quotes have no meaning.
    static Command split(const QString& commandLine, const std::function<bool(const QString&)>& isProgram);

private:
    void passScreenshotFolder() const;

    ProcessRunner& m_processes;
    std::function<QString()> m_screenshots;
};

} // namespace torvane

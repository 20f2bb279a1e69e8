// SPDX-License-Identifier: MIT
// Command lines and launches.
#include "ShellAndClose.h"
#include "platform/base/NativeText.h"
#include "platform/base/Paths.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

namespace {
QByteArray argumentOf(QString word) {
    // Other programs know folders by "/" alone.
    return NativeText::toNative(word.replace(QLatin1Char('\\'), QLatin1Char('/')));
}
} // namespace

void ShellAndClose::RunAndWait(const QString& commandLine) {
    const Command command =
        split(commandLine, [this](const QString& path) { return m_processes.isProgram(Paths::real(path)); });
    if (command.program.isEmpty()) return;
    passScreenshotFolder();
    m_processes.runAndWait(Paths::real(command.program), command.arguments);
}

// The command line has no room for it.
void ShellAndClose::passScreenshotFolder() const {
    if (!m_screenshots) return;
    ignoring([&] { qputenv("TORVANE_SCREENSHOTS", Paths::real(m_screenshots())); });
}

LaunchWay ShellAndClose::launchWay(const QString& fileName, const NameCut& cut,
                                   const std::function<int()>& zipSetting) {
    if (fileName.isEmpty()) return LaunchWay::nothing;
    if (cut.secondPiece(fileName).toLower() != QStringLiteral("zip")) return LaunchWay::withMinimising;
    return zipSetting() == 1 ? LaunchWay::zipViewer : LaunchWay::straight;
}

ShellAndClose::Command ShellAndClose::split(const QString& commandLine,
                                            const std::function<bool(const QString&)>& isProgram) {
    const QLatin1Char blank(' ');
    qsizetype end = commandLine.indexOf(blank);
    while (end == 0 || (end > 0 && !isProgram(commandLine.first(end)))) {
        end = commandLine.indexOf(blank, end + 1);
    }
    if (end < 0) {
        return isProgram(commandLine) ? Command{commandLine, {}} : Command{};
    }
    Command command{commandLine.first(end), {}};
    for (const QString& word : commandLine.sliced(end + 1).split(blank)) {
        command.arguments.append(argumentOf(word));
    }
    return command;
}

} // namespace torvane

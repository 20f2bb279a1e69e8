// SPDX-License-Identifier: MIT
// Cutting a command line into a program and its arguments, and the command that launches a game.
// Input: which lengths of the line name a program, and the line.
#include "Fuzz.h"
#include "NameReference.h"
#include "emulator/ShellAndClose.h"
#include "platform/base/NativeText.h"
#include "support/TagReference.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr int lengths = 16;
constexpr qsizetype longestLaunched = 40; // each blank costs a look-up in folders

QByteArray slashed(QString text) {
    return NativeText::toNative(text.replace(QLatin1Char('\\'), QLatin1Char('/')));
}

struct Processes : ProcessRunner {
    const std::function<bool(const QByteArray&)> isOne;
    int starts = 0;
    QByteArray program;
    QByteArrayList arguments;

    explicit Processes(std::function<bool(const QByteArray&)> knows) : isOne(std::move(knows)) {}
    bool isProgram(const QByteArray& path) override { return isOne(path); }
    void runAndWait(const QByteArray& path, const QByteArrayList& words) override {
        ++starts;
        program = path;
        arguments = words;
    }
};

void checkSplit(const QString& line, const std::function<bool(const QString&)>& isProgram) {
    const ShellAndClose::Command command = ShellAndClose::split(line, isProgram);
    QString shortest;
    for (qsizetype end = 1; end <= line.size() && shortest.isEmpty(); ++end) {
        const bool isWhole = end == line.size() || line[end] == QLatin1Char(' ');
        if (isWhole && isProgram(line.first(end))) shortest = line.first(end);
    }
    require(command.program == shortest, "the shortest piece up to a blank that names a program is it");
    if (shortest.isEmpty()) return require(command.arguments.isEmpty(), "without a program is nothing");
    const QString rest = line.sliced(shortest.size());
    require(command.arguments.isEmpty() == rest.isEmpty(), "each blank begins an argument");
    require(rest.isEmpty() || slashed(rest) == ' ' + command.arguments.join(' '),
            "the arguments joined by blanks are the line again");
}

// Checks that a launch finds the program by the same rule, now by its real path.
void checkLaunch(const QString& line, unsigned mask) {
    const auto isOne = [mask](const QByteArray& path) { return (mask >> path.size() % lengths & 1) != 0; };
    Processes processes(isOne);
    ShellAndClose(processes).RunAndWait(line);
    require(processes.starts <= 1, "one line starts one program");
    require(processes.starts == 0 || isOne(processes.program), "only a program is started");
}

void checkWay(const QString& name) {
    int asked = 0;
    const auto zip = [&](int setting) { return [&asked, setting] { return ++asked, setting; }; };
    const LaunchWay off = ShellAndClose::launchWay(name, {}, zip(0));
    const LaunchWay on = ShellAndClose::launchWay(name, {}, zip(1));
    const std::vector<std::string> pieces = reference::cut(name.toStdString(), ".");
    const bool isArchive =
        pieces.size() > 1 && QString::fromStdString(pieces[1]).toLower() == QLatin1String("zip");
    require(asked == (isArchive ? 2 : 0), "the setting is read for archives alone");
    const LaunchWay other = name.isEmpty() ? LaunchWay::nothing : LaunchWay::withMinimising;
    require(off == (isArchive ? LaunchWay::straight : other), "an archive goes straight to the emulator");
    require(on == (isArchive ? LaunchWay::zipViewer : other), "or into the viewer");
}
} // namespace

FUZZ_TARGET(command_line) {
    static const Scratch folder;
    Input input(data, size);
    const auto mask = static_cast<unsigned>(input.number(1 << lengths));
    const QString line = spelledPath(input.rest());
    checkSplit(line, [mask](const QString& path) { return (mask >> path.size() % lengths & 1) != 0; });
    if (line.size() <= longestLaunched) checkLaunch(QString::fromStdString(folder.path() + '/') + line, mask);
    checkWay(line);
    return 0;
}

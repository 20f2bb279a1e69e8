// SPDX-License-Identifier: MIT
// Choosing the command, its help, and the exit status.
#include "Tool.h"
#include "Commands.h"
#include "platform/base/Printable.h"
#include "tags/session/Interruption.h"

#include <cerrno>
#include <cstring>

namespace torvane {

namespace {
const std::vector<OptionForm> commonOptions = {{"--help", OptionForm::Kind::question},
                                               {"--version", OptionForm::Kind::question},
                                               {"--folder", OptionForm::Kind::value, "a path"}};

QByteArray generalHelp() {
    QByteArray text = "Usage: torvane-tags [--folder PATH] COMMAND [OPTION]... [FILE]...\n"
                      "Reads and writes the tags of Game Boy, Game Boy Color and Game Boy Advance\n"
                      "games.\n"
                      "\n"
                      "Commands:\n";
    for (const CommandEntry& entry : commands()) {
        text += "  " + QByteArray(entry.name).leftJustified(12) + entry.purpose + '\n';
    }
    return text + "\n"
                  "      --folder PATH  use the library of this folder\n"
                  "      --help         show this help, or that of a command, and exit\n"
                  "      --version      show the version and exit\n";
}
} // namespace

int Tool::run(const QByteArrayList& arguments) {
    const Arguments given = Arguments::read(arguments, commonOptions, Arguments::Extent::toTheOperand);
    if (!given.fault.isEmpty()) return refuse(given.fault);
    if (given.has("--help")) return answer(generalHelp());
    if (given.has("--version")) return answer("torvane-tags " TORVANE_VERSION "\n");
    if (given.rest.isEmpty()) return refuse("a command is missing");
    return runCommand(given.rest.front(), given.rest.sliced(1),
                      given.value("--folder").value_or(QByteArray()));
}

int Tool::runCommand(const QByteArray& name, const QByteArrayList& arguments, const QByteArray& folder) {
    const CommandEntry* entry = commandNamed(name);
    if (entry == nullptr) return refuse("unknown command '" + printable(name) + "'");
    const auto command = entry->make();
    std::vector<OptionForm> options = command->options();
    options.insert(options.end(), commonOptions.begin(), commonOptions.end());
    const Arguments given = Arguments::read(arguments, options);
    if (!given.fault.isEmpty()) return refuse(given.fault, name);
    if (given.has("--help")) return answer("Usage: torvane-tags " + name + ' ' + command->help());
    if (given.has("--version")) return answer("torvane-tags " TORVANE_VERSION "\n");
    const QByteArray fault = command->faultOf(given);
    if (!fault.isEmpty()) return refuse(fault, name);
    const Interruption interruption;
    Session session(given.value("--folder").value_or(folder), m_output, m_reports, interruption);
    if (given.has("--dry-run")) session.leaveLeftovers();
    command->run(given, session);
    const int status = end(interruption.hasCome());
    return session.status().value_or(status);
}

int Tool::answer(const QByteArray& text) {
    m_output.write(text);
    return end(false);
}

int Tool::refuse(const QByteArray& fault, const QByteArray& command) {
    const QByteArray name = command.isEmpty() ? command : ' ' + command;
    m_reports.print("torvane-tags: " + fault + "\nTry 'torvane-tags" + name + " --help'.\n");
    return misused;
}

// Whoever closes a pipe early has seen enough: that is no message, but no success either.
int Tool::end(bool isInterrupted) {
    m_output.flush();
    const int error = m_output.error();
    if (error != 0 && error != EPIPE) m_reports.fault("standard output", QByteArray(std::strerror(error)));
    if (isInterrupted) return interrupted;
    return error != 0 || m_reports.hasFaults() ? failed : done;
}

} // namespace torvane

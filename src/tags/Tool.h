// SPDX-License-Identifier: MIT
// The program torvane-tags from its command line to its exit status.
#pragma once

#include <QByteArrayList>

namespace torvane {

class Output;
class Reports;

class Tool {
public:
    /// What the process ends with.
    enum Status {
        done = 0,
        failed = 1,  ///< something failed or was refused, or the output could not be written
        misused = 2, ///< the command line can't be understood
        interrupted = 130
    };

    Tool(Output& output, Reports& reports) : m_output(output), m_reports(reports) {}

    /// Does what the arguments after the program's name ask for.
    int run(const QByteArrayList& arguments);

private:
    int runCommand(const QByteArray& name, const QByteArrayList& arguments, const QByteArray& folder);
    int answer(const QByteArray& text);
    int refuse(const QByteArray& fault, const QByteArray& command = {});
    int end(bool isInterrupted);

    Output& m_output;
    Reports& m_reports;
};

} // namespace torvane

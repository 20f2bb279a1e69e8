// SPDX-License-Identifier: MIT
// What a command prints: written in large pieces, with every result checked. The first failure ends it, so
// that a full disk or a closed pipe is noticed and not written to again.
#pragma once

#include <QByteArrayView>
#include <string>

namespace torvane {

class Output {
public:
    /// The descriptor stays the caller's.
    explicit Output(int descriptor) : m_descriptor(descriptor) {}
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Takes bytes; after a failure they are dropped.
    void write(QByteArrayView bytes);
    /// Writes what was taken so far. Nothing is written without this call once the last bytes are taken.
    void flush();
    /// The errno value of the first failure; 0 if there was none.
    int error() const { return m_error; }

    bool isTerminal() const;
    /// The columns of the terminal; 0 if it is none, or if its width is unknown.
    int terminalWidth() const;

private:
    bool writeSome(QByteArrayView& rest);

    int m_descriptor;
    int m_error = 0;
    std::string m_waiting;
};

} // namespace torvane

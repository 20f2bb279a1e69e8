// SPDX-License-Identifier: MIT
// The one exception type of the program, and the two ways to go on in spite of one.
// Raised by platform/ alone; what a handler makes of it is the handler's choice.
#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace torvane {

/// A failed operation: the runtime's number for it and its text in English.
class RuntimeFailure : public std::exception {
public:
    /// Numbers that the program raises; the values are those of the classic forms runtimes.
    enum Number {
        none = 0,
        invalidCall = 5,
        overflow = 6,
        outOfMemory = 7,
        subscript = 9,
        typeMismatch = 13,
        fileNotFound = 53,
        deviceError = 57,
        diskFull = 61,
        permissionDenied = 70,
        pathAccess = 75,
        pathNotFound = 76,
        noObject = 91,
        invalidProperty = 380,
        invalidPicture = 481,
        printer = 482,
    };

    explicit RuntimeFailure(Number number);

    /// The failure for an errno value of a file operation; unknown values give deviceError.
    static RuntimeFailure fromErrno(int error);
    /// The standing text of a number; empty for none and for numbers that the program never raises.
    static QString describe(Number number);

    Number number() const { return m_number; }
    QString text() const { return describe(m_number); }
    const char* what() const noexcept override { return "torvane::RuntimeFailure"; }

private:
    Number m_number;
};

/// Runs one statement and goes on with the next if it fails. True if it did not fail.
template <typename Statement>
bool ignoring(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RuntimeFailure&) {
        return false;
    }
}

} // namespace torvane

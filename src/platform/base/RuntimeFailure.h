// SPDX-License-Identifier: MIT
// The one exception type of the program, and the two ways to go on in spite of one.
// Raised by platform/ alone; what a handler makes of it is the handler's choice.
#pragma once

#include <QString>
#include <exception>
#include <utility>

namespace torvane {

/// A failed operation: the runtime's number for it and its text in English, and where they are known the file
/// and a closer reason.
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

    /// What a number alone leaves open. All failures to understand the tag of a file share one reason.
    enum class Reason {
        none,
        tag,       ///< the file has none that can be understood
        inUse,     ///< another program has the file open for writing, or keeps others from opening it
        changed,   ///< another program has changed the file meanwhile
        sameFile,  ///< source and target of a copy are one file
        noFolder,  ///< a file or something else is where a folder has to be
        noHome,    ///< the file belongs into the home folder of the user, who has none
        cancelled, ///< the user or the end of the program has ended the operation: nothing to report
    };

    explicit RuntimeFailure(Number number, Reason reason = Reason::none);

    /// The failure for an errno value of a file operation; unknown values give deviceError.
    static RuntimeFailure fromErrno(int error);
    /// The failure where a folder of the user's is to be used, and the system knows none.
    static RuntimeFailure ofNoHome();
    /// The standing text of a number; empty for none and for numbers that the program never raises.
    static QString describe(Number number);

    Number number() const { return m_number; }
    QString text() const { return describe(m_number); }
    /// What the runtime's error box says: number and text, in English.
    QString boxText() const;
    Reason reason() const { return m_reason; }
    /// The spelled path of the file that the operation was about; empty if none is known.
    const QString& file() const { return m_file; }
    /// The same failure with a file, unless it has one already: who raised it knew best.
    RuntimeFailure about(const QString& file) const;
    const char* what() const noexcept override { return "torvane::RuntimeFailure"; }

private:
    Number m_number;
    Reason m_reason;
    QString m_file;
};

/// Does something to a file, and names the file in a failure that names none.
template <typename Action>
auto aboutFile(const QString& path, Action&& action) {
    try {
        return std::forward<Action>(action)();
    } catch (const RuntimeFailure& failure) {
        throw failure.about(path);
    }
}

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

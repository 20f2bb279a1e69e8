// SPDX-License-Identifier: MIT
// One command of the program. Each is a class of its own, in the table of Commands.cpp.
#pragma once

#include "core/Arguments.h"
#include "tags/session/Session.h"

namespace torvane {

class Command {
public:
    virtual ~Command() = default;
    /// The options that it knows; --folder, --help and --version come with every command.
    virtual std::vector<OptionForm> options() const = 0;
    /// Its help: the arguments after the command's name, a line end, and what they mean.
    virtual QByteArray help() const = 0;
    /// Why it can't be run with these arguments, without a line end; empty if it can.
    virtual QByteArray faultOf(const Arguments&) const { return {}; }
    /// Does its work. What goes wrong is reported to the session.
    virtual void run(const Arguments& given, Session& session) = 0;
};

} // namespace torvane

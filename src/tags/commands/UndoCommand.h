// SPDX-License-Identifier: MIT
// undo: takes back what the last run has written to games.
#pragma once

#include "Command.h"

namespace torvane {

class UndoCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

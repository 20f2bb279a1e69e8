// SPDX-License-Identifier: MIT
// clear: removes the tags of games.
#pragma once

#include "Command.h"
#include "tags/edits/ChangeRows.h"

namespace torvane {

class ClearCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

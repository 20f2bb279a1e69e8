// SPDX-License-Identifier: MIT
// export: the tags of games as a file of the tag database.
#pragma once

#include "Command.h"

namespace torvane {

class ExportCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// list: a line for each game, of the library or of the folders and files that are named.
#pragma once

#include "Command.h"

namespace torvane {

class ListCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

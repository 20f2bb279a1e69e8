// SPDX-License-Identifier: MIT
// verify: prints what is wrong with games and their tags, and which games are there twice.
#pragma once

#include "Command.h"
#include "tags/checks/Finding.h"

namespace torvane {

class VerifyCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

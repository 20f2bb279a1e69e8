// SPDX-License-Identifier: MIT
// show: all that is known of the games that are named.
#pragma once

#include "Command.h"

namespace torvane {

class ShowCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

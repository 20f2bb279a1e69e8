// SPDX-License-Identifier: MIT
// identify: finds games in lists of known games, by their checksums.
#pragma once

#include "Command.h"

namespace torvane {

class IdentifyCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

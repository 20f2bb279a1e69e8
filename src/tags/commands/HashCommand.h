// SPDX-License-Identifier: MIT
// hash: the checksums of games without their tags, also of those in archives.
#pragma once

#include "Command.h"

namespace torvane {

class HashCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// copy-tags: gives games the tags of others.
#pragma once

#include "Command.h"
#include "tags/edits/ChangeRows.h"

namespace torvane {

class CopyTagsCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;
};

} // namespace torvane

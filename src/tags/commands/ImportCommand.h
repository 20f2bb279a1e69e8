// SPDX-License-Identifier: MIT
// import: gives games the tags that a file of the tag database has for their titles.
#pragma once

#include "Command.h"
#include "tags/edits/ChangeRows.h"

namespace torvane {

class TitledEntries;

class ImportCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;

private:
    struct Work {
        Session& session;
        const TitledEntries& entries;
        TagEdits& edits;
        ChangeRows& rows;
    };
    static QByteArray importOne(const GameFile& game, Work& work);
};

} // namespace torvane

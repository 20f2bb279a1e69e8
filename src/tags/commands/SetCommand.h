// SPDX-License-Identifier: MIT
// set: gives games a tag, or other texts in the tag that they have.
#pragma once

#include "Command.h"
#include "tags/edits/ChangeRows.h"
#include "tags/edits/GivenTag.h"

namespace torvane {

class SetCommand : public Command {
public:
    std::vector<OptionForm> options() const override;
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;

private:
    struct Work {
        Session& session;
        TagEdits& edits;
        ChangeRows& rows;
        QByteArray today; // in code page 1252
    };
    static void setGiven(const Arguments& given, Work& work);
    static void setFromTable(const QByteArray& path, Work& work);
    static QByteArray setOne(const GameFile& game, const GivenTag& tag, Work& work);
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// play: runs a game in the emulator, waits for it, and ends with its exit status.
#pragma once

#include "Command.h"
#include "core/Globals.h"

namespace torvane {

class PlayCommand : public Command {
public:
    std::vector<OptionForm> options() const override { return {}; }
    QByteArray help() const override;
    QByteArray faultOf(const Arguments& given) const override;
    void run(const Arguments& given, Session& session) override;

private:
    struct Game {
        QByteArray name; ///< as given
        QByteArray path; ///< real, absolute
        QByteArray member;
    };
    static void play(const Game& game, const Globals& globals, Session& session);
    static void playMember(const Game& game, const Globals& globals, Session& session);
    static void start(const QString& path, const Globals& globals, Session& session);
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Games whose images are the same under two names. Only images of the same size, with
// the same bytes at both ends, are read for it.
#pragma once

#include "platform/base/SystemCalls.h"
#include "tags/session/Session.h"

namespace torvane {

class Twins {
public:
    /// Takes a game whose image is so many bytes at the beginning of its file, which is open. Fails if it
    /// can't be read.
    void add(const GameFile& game, const Handle& file, qint64 image);
    /// Hands over each game whose image an earlier one has, too, and that one. What can't be read is
    /// reported.
    using Take = std::function<void(const GameFile& later, const GameFile& first)>;
    void find(Session& session, const Take& take);

private:
    struct Game {
        qint64 image;
        size_t ends; // a hash of its first and last bytes
        GameFile file;

        auto key() const { return std::pair(image, ends); }
    };
    void compare(const Game* from, const Game* to, Session& session, const Take& take);

    std::vector<Game> m_games;
};

} // namespace torvane

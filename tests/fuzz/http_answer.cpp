// SPDX-License-Identifier: MIT
// The answers of servers: never larger than allowed, and the same however the connection cuts them.
// Input: the size of the blocks, then the bytes of the connection.
#include "Fuzz.h"
#include "platform/base/HttpAnswer.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr qint64 longest = 200;

HttpAnswer answerFrom(const QByteArray& bytes, qsizetype blockSize) {
    HttpAnswer answer(longest);
    for (qsizetype at = 0; at < bytes.size(); at += blockSize) answer.take(bytes.mid(at, blockSize));
    return answer;
}
} // namespace

FUZZ_TARGET(http_answer) {
    Input input(data, size);
    const int blockSize = input.byte() + 1;
    const QByteArray bytes = input.rest();
    HttpAnswer whole = answerFrom(bytes, std::max<qsizetype>(bytes.size(), 1));
    HttpAnswer inBlocks = answerFrom(bytes, blockSize);
    for (HttpAnswer* answer : {&whole, &inBlocks}) {
        answer->takeEnd();
        require(answer->isWhole() != answer->isBroken(), "a closed connection decides");
    }
    require(whole.isWhole() == inBlocks.isWhole(), "blocks do not decide");
    if (!whole.isWhole()) return 0;
    require(whole.status() == inBlocks.status() && whole.status() >= 200, "the status is that of an answer");
    require(whole.redirect() == inBlocks.redirect(), "the target is the same");
    const QByteArray body = whole.takeBody();
    require(body == inBlocks.takeBody() && body.size() <= longest, "the body is the same, within the limit");
    return 0;
}

// SPDX-License-Identifier: MIT
// Downloads that nobody waits for.
#include "Download.h"
#include "HttpFetch.h"

namespace torvane::Download {

namespace {
constexpr int firstErrorStatus = 400;
}

void start(QObject& receiver, const QString& address, qint64 limit,
           const std::function<void(const QByteArray&)>& done) {
    auto* fetch = new HttpFetch({.bytes = limit}, &receiver);
    QObject::connect(fetch, &HttpFetch::ended, &receiver, [fetch, done] {
        fetch->deleteLater();
        const bool isWanted = fetch->isWhole() && fetch->status() < firstErrorStatus;
        done(isWanted ? fetch->takeBody() : QByteArray());
    });
    fetch->start(QUrl(address));
}

} // namespace torvane::Download

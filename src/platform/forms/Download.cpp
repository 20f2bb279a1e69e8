// SPDX-License-Identifier: MIT
// Downloads on Qt's network classes, which are set up at the first use.
#include "Download.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>

namespace torvane::Download {

namespace {
constexpr int timeoutMilliseconds = 30000;
}

void start(QObject& receiver, const QString& address, qint64 limit,
           const std::function<void(const QByteArray&)>& done) {
    auto* manager = new QNetworkAccessManager(&receiver);
    QNetworkRequest request{QUrl(address)};
    request.setTransferTimeout(timeoutMilliseconds);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply* reply = manager->get(request);
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply, [reply, limit](qint64 received, qint64) {
        if (received > limit) reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::finished, &receiver, [manager, reply, limit, done] {
        const bool whole = reply->error() == QNetworkReply::NoError && reply->bytesAvailable() <= limit;
        const QByteArray body = whole ? reply->readAll() : QByteArray();
        manager->deleteLater();
        done(body);
    });
}

} // namespace torvane::Download

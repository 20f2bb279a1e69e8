// SPDX-License-Identifier: MIT
// Requests on Qt's network classes. Redirects are followed here and not by Qt, so that every rule about them
// is in one place.
#include "HttpFetch.h"

#include <QNetworkReply>
#include <algorithm>
#include <array>

namespace torvane {

namespace {
constexpr qint64 readBuffer = 1 << 20; // bytes; beyond these a fast server has to wait

QNetworkRequest requestFor(const QUrl& address) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    // One file needs nothing of HTTP/2, and the ends of an HTTP/1 body are the tested ones.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    // A compressed body could unpack to any size. With this header Qt unpacks nothing by itself.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

int statusOf(const QNetworkReply& reply) {
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

bool isRedirect(int status) {
    constexpr std::array redirects = {301, 302, 303, 307, 308};
    return std::find(redirects.begin(), redirects.end(), status) != redirects.end();
}

bool isEncoded(const QNetworkReply& reply) {
    const QByteArray encoding = reply.rawHeader("Content-Encoding").trimmed().toLower();
    return !encoding.isEmpty() && encoding != "identity";
}

// Whether the announced length is a number within the limit, or there is none.
bool isLengthFine(const QNetworkReply& reply, qint64 limit) {
    const QByteArray length = reply.rawHeader("Content-Length").trimmed();
    if (length.isEmpty()) return true;
    bool isNumber = false;
    const qint64 bytes = length.toLongLong(&isNumber);
    return isNumber && bytes >= 0 && bytes <= limit;
}

// Whether an answer came to its end. Qt reports statuses such as 404 among the errors.
bool isComplete(const QNetworkReply& reply) {
    const QNetworkReply::NetworkError error = reply.error();
    const bool isStatus =
        (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
        (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
    return statusOf(reply) != 0 && (error == QNetworkReply::NoError || isStatus);
}
} // namespace

HttpFetch::HttpFetch(const TransferLimits& limits, QObject* parent) : QObject(parent), m_limits(limits) {
    m_silence.setSingleShot(true);
    m_silence.setInterval(m_limits.silenceMilliseconds);
    connect(&m_silence, &QTimer::timeout, this, &HttpFetch::abort);
}

HttpFetch::~HttpFetch() { dropReply(); }

bool HttpFetch::isWeb(const QUrl& address) {
    const QString scheme = address.scheme();
    return (scheme == QStringLiteral("http") || scheme == QStringLiteral("https")) &&
           !address.host().isEmpty();
}

void HttpFetch::start(const QUrl& address) {
    if (isWeb(address)) return request(address);
    QMetaObject::invokeMethod(this, &HttpFetch::abort, Qt::QueuedConnection);
}

void HttpFetch::request(const QUrl& address) {
    m_silence.start();
    m_reply = m_manager.get(requestFor(address));
    m_reply->setReadBufferSize(readBuffer);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpFetch::takeHeader);
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpFetch::takeBytes);
    connect(m_reply, &QNetworkReply::finished, this, &HttpFetch::takeEnd);
}

void HttpFetch::takeHeader() {
    m_silence.start();
    const QByteArray location = m_reply->rawHeader("Location");
    if (isRedirect(statusOf(*m_reply)) && !location.isEmpty()) {
        return follow(m_reply->url().resolved(QUrl::fromEncoded(location)));
    }
    if (isEncoded(*m_reply) || !isLengthFine(*m_reply, m_limits.bytes)) end(false);
}

// A server may send us to another server, but not to files of this machine, and not to an open line after a
// secure one.
void HttpFetch::follow(const QUrl& target) {
    const bool wasSecure = m_reply->url().scheme() == QStringLiteral("https");
    const bool isSecure = target.scheme() == QStringLiteral("https");
    if (!isWeb(target) || (wasSecure && !isSecure) || ++m_redirects > m_limits.redirects) return end(false);
    dropReply();
    request(target);
}

void HttpFetch::takeBytes() {
    m_silence.start();
    m_body += m_reply->readAll();
    if (m_body.size() > m_limits.bytes) end(false);
}

void HttpFetch::takeEnd() {
    takeBytes();
    if (m_isEnded) return;
    m_status = statusOf(*m_reply);
    end(isComplete(*m_reply));
}

void HttpFetch::dropReply() {
    if (m_reply == nullptr) return;
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater();
    m_reply = nullptr;
}

void HttpFetch::end(bool isWhole) {
    if (m_isEnded) return;
    m_isEnded = true;
    m_isWhole = isWhole;
    if (!isWhole) m_body.clear();
    m_silence.stop();
    dropReply();
    emit ended();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Requests over Qt's sockets.
#include "HttpFetch.h"

#include <QCoreApplication>

namespace torvane {

namespace {
constexpr int httpPort = 80;
constexpr int httpsPort = 443;

bool isSecure(const QUrl& address) { return address.scheme() == QStringLiteral("https"); }

quint16 portOf(const QUrl& address) {
    return static_cast<quint16>(address.port(isSecure(address) ? httpsPort : httpPort));
}

QByteArray pathOf(const QUrl& address) {
    const QByteArray path =
        address.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    return path.startsWith('/') ? path : '/' + path;
}

QByteArray requestFor(const QUrl& address) {
    const QString host = address.adjusted(QUrl::RemoveUserInfo).authority(QUrl::FullyEncoded);
    const QString program =
        QCoreApplication::applicationName() + QLatin1Char('/') + QCoreApplication::applicationVersion();
    // A compressed body could unpack to any size, so none is asked for.
    return "GET " + pathOf(address) + " HTTP/1.1\r\nHost: " + host.toLatin1() +
           "\r\nUser-Agent: " + QUrl::toPercentEncoding(program, "/ ") +
           "\r\nAccept: */*\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\n"
           "Connection: close\r\n\r\n";
}
} // namespace

HttpFetch::HttpFetch(const TransferLimits& limits, QObject* parent)
    : QObject(parent), m_limits(limits), m_answer(limits.bytes) {
    m_silence.setSingleShot(true);
    m_silence.setInterval(m_limits.silenceMilliseconds);
    connect(&m_silence, &QTimer::timeout, this, &HttpFetch::abort);
}

HttpFetch::~HttpFetch() { dropConnection(); }

bool HttpFetch::isWeb(const QUrl& address) {
    return (address.scheme() == QStringLiteral("http") || isSecure(address)) && !address.host().isEmpty();
}

void HttpFetch::start(const QUrl& address) {
    // What follows may fail before it returns, such as a connection to a port that nobody listens at.
    QMetaObject::invokeMethod(
        this, [this, address] { isWeb(address) ? request(address) : abort(); }, Qt::QueuedConnection);
}

void HttpFetch::request(const QUrl& address) {
    if (m_isEnded) return;
    m_silence.start();
    m_address = address;
    m_answer = HttpAnswer(m_limits.bytes);
    using Line = HostConnection::Line;
    m_connection = new HostConnection(isSecure(address) ? Line::secure : Line::plain, this);
    connect(m_connection, &HostConnection::connected, this, &HttpFetch::send);
    connect(m_connection, &HostConnection::failed, this, &HttpFetch::abort);
    m_connection->open(address.host(QUrl::FullyEncoded), portOf(address), m_limits.silenceMilliseconds);
}

void HttpFetch::send() {
    m_silence.start();
    QTcpSocket& socket = m_connection->socket();
    connect(&socket, &QTcpSocket::readyRead, this, &HttpFetch::takeBytes);
    connect(&socket, &QTcpSocket::errorOccurred, this, &HttpFetch::takeError);
    connect(&socket, &QTcpSocket::disconnected, this, &HttpFetch::takeEnd);
    m_end = TcpEnd(socket.socketDescriptor());
    socket.write(requestFor(m_address));
}

void HttpFetch::takeBytes() {
    m_silence.start();
    m_answer.take(m_connection->socket().readAll());
    judge();
}

void HttpFetch::takeError(QAbstractSocket::SocketError error) {
    // A server that closes the connection may just have come to the end of its answer. See takeEnd.
    if (error != QAbstractSocket::RemoteHostClosedError) abort();
}

void HttpFetch::takeEnd() {
    m_answer.take(m_connection->socket().readAll());
    m_end.wasReset() ? m_answer.takeReset() : m_answer.takeEnd();
    judge();
}

void HttpFetch::judge() {
    if (m_answer.isBroken()) return abort();
    if (!m_answer.isWhole()) return;
    const QByteArray target = m_answer.redirect();
    target.isEmpty() ? end(true) : follow(m_address.resolved(QUrl::fromEncoded(target)));
}

// A server may send us to another server, but not to files of this machine, and not to an open line after a
// secure one.
void HttpFetch::follow(const QUrl& target) {
    const bool isLessSafe = isSecure(m_address) && !isSecure(target);
    if (!isWeb(target) || isLessSafe || ++m_redirects > m_limits.redirects) return abort();
    dropConnection();
    request(target);
}

void HttpFetch::dropConnection() {
    if (m_connection == nullptr) return;
    m_connection->disconnect(this);
    m_connection->close();
    m_connection->deleteLater();
    m_connection = nullptr;
    m_end = {};
}

void HttpFetch::end(bool isWhole) {
    if (m_isEnded) return;
    m_isEnded = true;
    m_isWhole = isWhole;
    m_silence.stop();
    dropConnection();
    emit ended();
}

} // namespace torvane

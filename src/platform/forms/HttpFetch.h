// SPDX-License-Identifier: MIT
// One request to an http or https server, with the program's rules for redirects, limits and broken answers.
// Owned by whoever wants the body, who serves events meanwhile.
#pragma once

#include "../base/HttpAnswer.h"
#include "../base/TcpEnd.h"
#include "HostConnection.h"

#include <QUrl>

namespace torvane {

/// What ends a transfer.
struct TransferLimits {
    int silenceMilliseconds = 20000;          ///< the longest time without a byte of the answer
    qint64 bytes = qint64{256} * 1024 * 1024; ///< the longest body
    int redirects = 5;                        ///< how many are followed
};

/// Over sockets, and not over Qt's network access manager: that one (6.4) reports a body in chunks as whole
/// if the connection breaks, and so it does with half an error page.
class HttpFetch : public QObject {
    Q_OBJECT

public:
    explicit HttpFetch(const TransferLimits& limits = {}, QObject* parent = nullptr);
    ~HttpFetch() override;

    /// Whether an address is one for `start`: http or https, with a host.
    static bool isWeb(const QUrl& address);

    /// Asks for an address; to be called once. Any other than http or https fails.
    void start(const QUrl& address);
    /// Ends the request without a body. Does nothing after the end.
    void abort() { end(false); }

    bool isEnded() const { return m_isEnded; }
    /// Whether an answer has arrived whole (see HttpAnswer), within the limits.
    bool isWhole() const { return m_isWhole; }
    /// The HTTP status of the last answer, such as 404; 0 without one.
    int status() const { return m_answer.status(); }
    /// Hands over the body of a whole answer; empty without one.
    QByteArray takeBody() { return m_isWhole ? m_answer.takeBody() : QByteArray(); }

signals:
    /// The request has ended, with or without a body. Emitted once, and never by `start` itself.
    void ended();

private:
    void request(const QUrl& address);
    void send();
    void takeBytes();
    void takeError(QAbstractSocket::SocketError error);
    void takeEnd();
    void judge();
    void follow(const QUrl& target);
    void dropConnection();
    void end(bool isWhole);

    const TransferLimits m_limits;
    QUrl m_address;
    QPointer<HostConnection> m_connection;
    TcpEnd m_end; // of this connection
    HttpAnswer m_answer;
    QTimer m_silence;
    int m_redirects = 0;
    bool m_isEnded = false;
    bool m_isWhole = false;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// One request to an http or https server, with the program's rules for redirects, limits and broken answers.
// Owned by whoever wants the body, who serves events meanwhile.
#pragma once

#include <QNetworkAccessManager>
#include <QPointer>
#include <QTimer>
#include <QUrl>

class QNetworkReply;

namespace torvane {

/// What ends a transfer.
struct TransferLimits {
    int silenceMilliseconds = 20000;          ///< the longest time without a byte of the answer
    qint64 bytes = qint64{256} * 1024 * 1024; ///< the longest body
    int redirects = 5;                        ///< how many are followed
};

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
    /// Whether the answer has ended with its body whole: as long as its header says, within the limits and
    /// not encoded. Without a length in the header, a body lasts until the server closes the connection.
    bool isWhole() const { return m_isWhole; }
    /// The HTTP status of a whole answer, such as 404; 0 without one.
    int status() const { return m_status; }
    /// Hands over the bytes that have arrived.
    QByteArray takeBody() { return std::exchange(m_body, {}); }

signals:
    /// The request has ended, with or without a body. Emitted once, and never by `start` itself.
    void ended();

private:
    void request(const QUrl& address);
    void takeHeader();
    void follow(const QUrl& target);
    void takeBytes();
    void takeEnd();
    void dropReply();
    void end(bool isWhole);

    const TransferLimits m_limits;
    QNetworkAccessManager m_manager;
    QPointer<QNetworkReply> m_reply;
    QTimer m_silence;
    QByteArray m_body;
    int m_redirects = 0;
    int m_status = 0;
    bool m_isEnded = false;
    bool m_isWhole = false;
};

} // namespace torvane

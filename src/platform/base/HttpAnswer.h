// SPDX-License-Identifier: MIT
// The answer of a server (HTTP/1.0 and 1.1, RFC 9112), put together from the bytes of a connection. It
// decides what counts as a whole body. Owned by the request.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <utility>

namespace torvane {

class HttpAnswer {
public:
    /// The longest body in bytes.
    explicit HttpAnswer(qint64 longestBody) : m_longestBody(longestBody) {}

    /// Takes the next bytes of the connection. What comes after the end of the answer is ignored.
    void take(QByteArrayView bytes);
    /// The server has closed the connection.
    void takeEnd();
    /// The connection has broken: what is not whole by now will never be.
    void takeReset();

    /// Whether the answer is complete: its body is as long as its header or its chunks say, or, if they don't
    /// say, lasts until the server closes the connection. A redirect is complete without its body.
    bool isWhole() const { return m_part == Part::whole; }
    /// Whether it can't become complete any more: cut, not HTTP, too long, or encoded in any way. A header or
    /// one line of a body's frame may have 64 KiB.
    bool isBroken() const { return m_part == Part::broken; }
    /// Such as 404; 0 before it is known.
    int status() const { return m_status; }
    /// Where a redirect leads, as the server wrote it; empty for any other answer.
    QByteArray redirect() const;
    QByteArray takeBody() { return std::exchange(m_body, {}); }

private:
    enum class Part {
        status,
        header,
        bodyOfLength,
        bodyToTheEnd,
        chunkSize,
        chunk,
        chunkEnd,
        trailer,
        whole,
        broken
    };

    bool isEnded() const { return isWhole() || isBroken(); }
    qsizetype takeBodyBytes(QByteArrayView bytes);
    qsizetype takeLineBytes(QByteArrayView bytes);
    Part afterLine(const QByteArray& line);
    Part afterStatus(const QByteArray& line);
    Part afterHeaderLine(const QByteArray& line);
    Part afterHeader();
    Part afterChunkSize(const QByteArray& line);
    Part bodyOf(const QByteArray& length, Part part, int base);

    qint64 m_longestBody;
    Part m_part = Part::status;
    QByteArray m_line;         // the part of a line that has arrived
    qsizetype m_lineBytes = 0; // of the header, or of one line in the body
    int m_status = 0;
    QMap<QByteArray, QByteArray> m_fields; // by name in lower case; several values are joined by ","
    qint64 m_left = 0;                     // bytes of the body or chunk that are still to come
    QByteArray m_body;
};

} // namespace torvane

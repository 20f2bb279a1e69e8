// SPDX-License-Identifier: MIT
// Reading answers, line by line in the header and between chunks, in blocks otherwise.
#include "HttpAnswer.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace torvane {

namespace {
constexpr qsizetype mostLineBytes = 64 * 1024;

bool isIn(int status, std::initializer_list<int> list) {
    return std::find(list.begin(), list.end(), status) != list.end();
}

bool isBlankInside(const QByteArray& name) {
    return std::any_of(name.begin(), name.end(), [](char c) { return c == ' ' || c == '\t'; });
}

// A number without sign; -1 for anything else.
qint64 numberOf(const QByteArray& text, int base) {
    if (text.isEmpty() || text.startsWith('-') || text.startsWith('+') || text.startsWith("0x")) return -1;
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber, base);
    return isNumber ? number : -1;
}
} // namespace

void HttpAnswer::take(QByteArrayView bytes) {
    while (!bytes.isEmpty() && !isEnded()) {
        const bool isBody =
            m_part == Part::bodyOfLength || m_part == Part::bodyToTheEnd || m_part == Part::chunk;
        bytes = bytes.sliced(isBody ? takeBodyBytes(bytes) : takeLineBytes(bytes));
    }
}

void HttpAnswer::takeEnd() {
    if (isEnded()) return;
    m_part = m_part == Part::bodyToTheEnd ? Part::whole : Part::broken;
}

void HttpAnswer::takeReset() {
    if (!isEnded()) m_part = Part::broken;
}

QByteArray HttpAnswer::redirect() const {
    return isIn(m_status, {301, 302, 303, 307, 308}) ? m_fields.value("location") : QByteArray();
}

qsizetype HttpAnswer::takeBodyBytes(QByteArrayView bytes) {
    const bool isCounted = m_part != Part::bodyToTheEnd;
    const qsizetype taken = isCounted ? std::min<qint64>(bytes.size(), m_left) : bytes.size();
    m_body.append(bytes.first(taken));
    m_left -= taken;
    if (m_body.size() > m_longestBody) {
        m_part = Part::broken;
    } else if (isCounted && m_left == 0) {
        m_part = m_part == Part::chunk ? Part::chunkEnd : Part::whole;
    }
    return taken;
}

qsizetype HttpAnswer::takeLineBytes(QByteArrayView bytes) {
    const qsizetype end = bytes.indexOf('\n');
    const qsizetype taken = end < 0 ? bytes.size() : end + 1;
    m_line.append(bytes.first(taken));
    m_lineBytes += taken;
    if (m_lineBytes > mostLineBytes) {
        m_part = Part::broken;
    } else if (end >= 0) {
        m_line.chop(m_line.endsWith("\r\n") ? 2 : 1);
        m_part = afterLine(std::exchange(m_line, {}));
    }
    return taken;
}

HttpAnswer::Part HttpAnswer::afterLine(const QByteArray& line) {
    switch (m_part) {
    case Part::status: return afterStatus(line);
    case Part::header: return line.isEmpty() ? afterHeader() : afterHeaderLine(line);
    case Part::chunkSize: return afterChunkSize(line);
    case Part::chunkEnd: m_lineBytes = 0; return line.isEmpty() ? Part::chunkSize : Part::broken;
    case Part::trailer: return line.isEmpty() ? Part::whole : Part::trailer;
    default: return Part::broken;
    }
}

// Such as "HTTP/1.1 200 OK".
HttpAnswer::Part HttpAnswer::afterStatus(const QByteArray& line) {
    if (!line.startsWith("HTTP/1.") || line.size() < 12 || line[8] != ' ') return Part::broken;
    const qint64 status = numberOf(line.sliced(9, 3), 10);
    if (status < 100 || (line.size() > 12 && line[12] != ' ')) return Part::broken;
    m_status = static_cast<int>(status);
    m_fields.clear();
    return Part::header;
}

HttpAnswer::Part HttpAnswer::afterHeaderLine(const QByteArray& line) {
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = line.left(colon).toLower();
    // A blank in the name is a line that continues the one before: allowed once, and of no use but for
    // tricks.
    if (colon < 1 || isBlankInside(name)) return Part::broken;
    const QByteArray value = line.sliced(colon + 1).trimmed();
    QByteArray& field = m_fields[name];
    field = field.isEmpty() ? value : field + ',' + value;
    return Part::header;
}

HttpAnswer::Part HttpAnswer::afterHeader() {
    if (m_status == 101) return Part::broken; // another protocol
    if (m_status < 200) return Part::status;  // the answer is still to come
    if (isIn(m_status, {204, 304}) || !redirect().isEmpty()) return Part::whole;
    const QByteArray encoding = m_fields.value("content-encoding").toLower();
    if (!encoding.isEmpty() && encoding != "identity") return Part::broken;
    m_lineBytes = 0;
    if (m_fields.contains("transfer-encoding")) {
        return m_fields["transfer-encoding"].toLower() == "chunked" ? Part::chunkSize : Part::broken;
    }
    if (!m_fields.contains("content-length")) return Part::bodyToTheEnd;
    const Part part = bodyOf(m_fields["content-length"], Part::bodyOfLength, 10);
    // A buffer that grows is copied, so that the body would be in memory twice. If the length is a lie, this
    // costs addresses and no memory.
    if (part == Part::bodyOfLength) m_body.reserve(m_left);
    return part == Part::bodyOfLength && m_left == 0 ? Part::whole : part;
}

// A number in hexadecimal digits, and perhaps more after a semicolon.
HttpAnswer::Part HttpAnswer::afterChunkSize(const QByteArray& line) {
    const Part part = bodyOf(line.split(';').first().trimmed(), Part::chunk, 16);
    m_lineBytes = 0;
    return part == Part::chunk && m_left == 0 ? Part::trailer : part;
}

HttpAnswer::Part HttpAnswer::bodyOf(const QByteArray& length, Part part, int base) {
    m_left = numberOf(length, base);
    return m_left < 0 || m_left > m_longestBody - m_body.size() ? Part::broken : part;
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Tag lines, and files that contain them.
#include "TagBytes.h"

#include <QByteArrayList>
#include <algorithm>
#include <cstring>
#include <random>

namespace torvane::faults::TagBytes {

namespace {
const QByteArray marker = "ID3TAG\xA7";
constexpr qsizetype windowSize = 1024;

QByteArray built(const QByteArrayList& fields) { return marker + fields.join('\xA7') + "\xA7\r\n"; }

QByteArray sizeIn(const QByteArray& file) {
    return file.sliced(file.indexOf(marker) + marker.size()).split('\xA7').value(4);
}

// The image before the marker, at most of the size that the tag gives.
QByteArray imageIn(const QByteArray& bytes) {
    return bytes.first(bytes.indexOf(marker))
        .first(std::min<qsizetype>(bytes.indexOf(marker), sizeIn(bytes).toLongLong()));
}
} // namespace

QByteArray image(qsizetype size, quint64 seed) {
    std::mt19937_64 random(seed);
    QByteArray bytes((size + 7) / 8 * 8, '\0');
    for (qsizetype i = 0; i < bytes.size(); i += 8) {
        const quint64 next = random();
        std::memcpy(bytes.data() + i, &next, 8);
    }
    bytes.truncate(size);
    return bytes;
}

QByteArray line(qsizetype size, const QByteArray& lineCompany, qsizetype length) {
    const auto withInfo = [&](const QByteArray& text) {
        return built({lineCompany, "An old title", "1/2/03", text, QByteArray::number(size)});
    };
    return withInfo(QByteArray(std::max<qsizetype>(length - withInfo({}).size(), 0), 'o'));
}

QByteArray newLine(qsizetype size) { return built({company, title, date, info, QByteArray::number(size)}); }

TagLine::Fields newFields() { return {company, title, date, info, {}}; }

qsizetype newLength(qsizetype size) { return newLine(size).size(); }

std::optional<QByteArray> stripped(const QByteArray& file) {
    if (!file.contains(marker)) return std::nullopt;
    return imageIn(file) + "\r\n";
}

std::optional<QByteArray> replaced(const QByteArray& file) {
    const QByteArray window = file.sliced(file.size() - windowSize - 1).first(windowSize);
    if (!window.contains(marker)) return std::nullopt;
    return imageIn(window) + "\r\n" + built({company, title, date, info, sizeIn(window)});
}

QByteArray appended(const QByteArray& file) { return file + newLine(file.size()); }

QByteArray saved(const QByteArray& file) {
    const auto image = stripped(file);
    return appended(image ? *image : file);
}

} // namespace torvane::faults::TagBytes

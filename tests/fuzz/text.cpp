// SPDX-License-Identifier: MIT
// Text of data files and text of file names: bytes round-trip, and text as far as it can.
// Input: the text, as bytes and as units of 16 bits.
#include "Fuzz.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NativeText.h"

#include <QString>
#include <cstring>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
void checkDataFile(QByteArrayView bytes, QStringView text) {
    const QString read = CodePage1252::fromBytes(bytes);
    require(read.size() == bytes.size() && CodePage1252::holds(read), "each byte is a character");
    require(CodePage1252::toBytes(read) == bytes, "bytes of a data file come back");
    const QByteArray written = CodePage1252::toBytes(text);
    const QString again = CodePage1252::fromBytes(written);
    require(written.size() == text.size(), "each character is a byte");
    bool holdsAll = true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isKept = again[i] == text[i];
        require(isKept || written[i] == '?', "a character is kept or becomes a question mark");
        holdsAll = holdsAll && isKept;
    }
    require(CodePage1252::holds(text) == holdsAll, "holds() knows what the code page has");
}

void checkFileName(QByteArrayView bytes, QStringView text) {
    const QString name = NativeText::fromNative(bytes);
    require(NativeText::toNative(name) == bytes, "bytes of a file's name come back");
    require(!name.contains(QLatin1Char('\\')), "no name holds the separator");
    if (!bytes.contains('\\')) {
        require(name.isValidUtf16() == bytes.toByteArray().isValidUtf8(),
                "what is no text in UTF-8, and that alone, needs escapes");
    }
    const QByteArray native = NativeText::toNative(text);
    if (text.isValidUtf16()) require(native == text.toUtf8(), "text is written in UTF-8");
    require(NativeText::toNative(NativeText::fromNative(native)) == native, "what is written comes back");
}
} // namespace

FUZZ_TARGET(text) {
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString text(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    if (!text.isEmpty()) std::memcpy(text.data(), data, size / 2 * 2);
    checkDataFile(bytes, text);
    checkFileName(bytes, text);
    return 0;
}

// SPDX-License-Identifier: MIT
// INI form through SimpleIni.
#include "IniFile.h"
#include "File.h"
#include "RuntimeFailure.h"
#include "SafeFile.h"

#include <algorithm>

// The bytes are handed through as they are: no conversion of text is wanted.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

namespace torvane::IniFile {

namespace {
// More than any language file or settings file ever holds: a wrong path must not fill the memory.
constexpr qint64 sizeLimit = 4 << 20;

QByteArray contentOf(const QString& file) {
    const File opened(file);
    if (opened.length() > sizeLimit) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return opened.readAll().replace('\0', ' '); // the reader takes a zero byte for the end
}

QByteArray contentToChange(const QString& file) {
    try {
        return contentOf(file);
    } catch (const RuntimeFailure& failure) {
        // Taking any other failure for an empty file would lose what is in it.
        if (failure.number() != RuntimeFailure::fileNotFound) throw;
        return {};
    }
}

// The section that a line begins; nothing if it begins none.
std::optional<QByteArrayView> sectionBegunBy(QByteArrayView line) {
    line = line.trimmed();
    const qsizetype end = line.indexOf(']');
    if (!line.startsWith('[') || end < 0) return std::nullopt;
    return line.sliced(1, end - 1).trimmed();
}

// The part of a file that can hold a section's keys: it is often a small one, and taking in the rest, too,
// would be most of the time that a look-up takes.
QByteArray partFor(const QByteArray& section, const QByteArray& bytes) {
    const auto endsLine = [](char c) { return c == '\n' || c == '\r'; };
    QByteArray part;
    bool wanted = true;
    for (auto start = bytes.begin(); start != bytes.end();) {
        const auto next = std::find_if_not(std::find_if(start, bytes.end(), endsLine), bytes.end(), endsLine);
        const QByteArrayView line(start, next);
        if (line.trimmed() == "[") return bytes; // the reader takes the name from the next line
        const auto begun = sectionBegunBy(line);
        if (begun) wanted = begun->compare(section, Qt::CaseInsensitive) == 0;
        if (wanted) part.append(line);
        start = next;
    }
    return part;
}

std::optional<QByteArray> valueIn(const QByteArray& bytes, const QByteArray& section, const QByteArray& key) {
    CSimpleIniA ini;
    ini.SetUnicode(false);
    ini.LoadData(bytes.constData(), static_cast<size_t>(bytes.size()));
    const char* found = ini.GetValue(section.constData(), key.constData());
    return found ? std::optional<QByteArray>(found) : std::nullopt;
}
} // namespace

std::optional<QByteArray> value(const QString& file, const QByteArray& section, const QByteArray& key) {
    QByteArray bytes;
    ignoring([&] { bytes = contentOf(file); });
    return valueIn(partFor(section, bytes), section, key);
}

void setValue(const QString& file, const QByteArray& section, const QByteArray& key,
              const QByteArray& value) {
    const QByteArray former = contentToChange(file);
    CSimpleIniA ini;
    ini.SetUnicode(false);
    ini.LoadData(former.constData(), static_cast<size_t>(former.size()));
    ini.SetValue(section.constData(), key.constData(), value.constData());
    std::string text;
    if (ini.Save(text) < 0) throw RuntimeFailure(RuntimeFailure::deviceError);
    const QByteArray bytes = QByteArray::fromStdString(text);
    if (valueIn(bytes, section, key) != value) throw RuntimeFailure(RuntimeFailure::invalidCall);
    SafeFile::replace(file, bytes);
}

} // namespace torvane::IniFile

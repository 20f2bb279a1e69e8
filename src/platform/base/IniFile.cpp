// SPDX-License-Identifier: MIT
// INI files via SimpleIni.
#include "IniFile.h"
#include "File.h"
#include "RuntimeFailure.h"
#include "SafeFile.h"

#include <cstring>

// The bytes pass through unchanged, without any conversion of text.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

namespace torvane::IniFile {

namespace {
constexpr const char* lineEnds = "\r\n";

QByteArray contentOf(const QString& file) {
    const File opened(file);
    if (opened.length() > largestFile) throw RuntimeFailure(RuntimeFailure::outOfMemory);
    return opened.readAll();
}

QByteArray contentToChange(const QString& file) {
    try {
        return contentOf(file);
    } catch (const RuntimeFailure& failure) {
        // Treating any other failure as an empty file would lose its content.
        if (failure.number() != RuntimeFailure::fileNotFound) throw;
        return {};
    }
}

// Strips what SimpleIni skips at the start of a line: blanks and tabs only. A byte order mark, which is in
// the middle of a file if two were concatenated, is no part of a key either.
QByteArrayView skipBlanks(QByteArrayView line) {
    constexpr char byteOrderMark[] = "\xEF\xBB\xBF";
    for (;;) {
        const qsizetype count = line.startsWith(' ') || line.startsWith('\t') ? 1
                                : line.startsWith(byteOrderMark)              ? 3
                                                                              : 0;
        if (count == 0) return line;
        line = line.sliced(count);
    }
}

bool isNamed(QByteArrayView name, QByteArrayView section) {
    name = skipBlanks(name);
    while (name.endsWith(' ') || name.endsWith('\t')) name.chop(1);
    return name.compare(section, Qt::CaseInsensitive) == 0;
}

// Drops comments and the other sections before parsing: that saves most of a look-up's time. Also drops
// section headers without "]", because SimpleIni would take all that follows for their keys or their name.
QByteArray linesOf(QByteArray bytes, const std::optional<QByteArray>& section) {
    if (bytes.contains('\0')) bytes.replace('\0', ' '); // SimpleIni stops at a zero byte
    QByteArray lines;
    bool wanted = true;
    const char* const end = bytes.constData() + bytes.size();
    for (const char* start = bytes.constData(); start != end;) {
        const char* next = start + std::strcspn(start, lineEnds);
        next += std::strspn(next, lineEnds);
        const QByteArrayView line = skipBlanks({start, next});
        start = next;
        if (line.startsWith('[')) {
            const qsizetype closed = line.indexOf(']');
            if (closed < 0) continue;
            wanted = !section || isNamed(line.sliced(1, closed - 1), *section);
        }
        if (wanted) lines.append(line);
    }
    return lines;
}

void load(CSimpleIniA& ini, const QByteArray& lines) {
    ini.SetUnicode(false);
    ini.LoadData(lines.constData(), static_cast<size_t>(lines.size()));
}
} // namespace

std::optional<QByteArray> value(const QString& file, const QByteArray& section, const QByteArray& key) {
    QByteArray content;
    ignoring([&] { content = contentOf(file); });
    return valueIn(content, section, key);
}

void setValue(const QString& file, const QByteArray& section, const QByteArray& key,
              const QByteArray& value) {
    setValues(file, section, {{key, value}});
}

void setValues(const QString& file, const QByteArray& section,
               const QList<std::pair<QByteArray, QByteArray>>& values) {
    QByteArray content = contentToChange(file);
    bool isChanged = false;
    for (const auto& [key, value] : values) {
        if (valueIn(content, section, key) == value) continue;
        content = withValue(content, section, key, value);
        isChanged = true;
    }
    if (isChanged) SafeFile::replace(file, content);
}

std::optional<QByteArray> valueIn(const QByteArray& content, const QByteArray& section,
                                  const QByteArray& key) {
    // SimpleIni would cut a name at its zero byte.
    if (section.contains('\0') || key.contains('\0')) return std::nullopt;
    CSimpleIniA ini;
    load(ini, linesOf(content, section));
    const char* found = ini.GetValue(section.constData(), key.constData());
    return found ? std::optional<QByteArray>(found) : std::nullopt;
}

QByteArray withValue(const QByteArray& content, const QByteArray& section, const QByteArray& key,
                     const QByteArray& value) {
    CSimpleIniA ini;
    load(ini, linesOf(content, std::nullopt));
    ini.SetValue(section.constData(), key.constData(), value.constData());
    std::string text;
    if (ini.Save(text) < 0) throw RuntimeFailure(RuntimeFailure::deviceError);
    QByteArray changed = QByteArray::fromStdString(text);
    if (valueIn(changed, section, key) != value) throw RuntimeFailure(RuntimeFailure::invalidCall);
    return changed;
}

} // namespace torvane::IniFile

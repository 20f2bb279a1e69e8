// SPDX-License-Identifier: MIT
// INI form through SimpleIni.
#include "IniFile.h"
#include "File.h"
#include "RuntimeFailure.h"
#include "SafeFile.h"

// The bytes are handed through as they are: no conversion of text is wanted.
#define SI_NO_CONVERSION
#include <SimpleIni.h>

namespace torvane::IniFile {

namespace {
// More than any language file or settings file ever holds: a wrong path must not fill the memory.
constexpr qint64 sizeLimit = 4 << 20;

void load(CSimpleIniA& ini, const QString& file) {
    ini.SetUnicode(false);
    // Values with line breaks or outer blanks (a folder may be called so) survive as multi-line data.
    ini.SetMultiLine(true);
    // Lines without "=" are somebody's, even if they mean nothing here.
    ini.SetAllowKeyOnly(true);
    ignoring([&] {
        QByteArray bytes = File(file).readAt(0, sizeLimit);
        bytes.replace('\0', ' '); // the reader takes a zero byte for the end
        ini.LoadData(bytes.constData(), static_cast<size_t>(bytes.size()));
    });
}
} // namespace

std::optional<QByteArray> value(const QString& file, const QByteArray& section, const QByteArray& key) {
    CSimpleIniA ini;
    load(ini, file);
    const char* found = ini.GetValue(section.constData(), key.constData());
    return found ? std::optional<QByteArray>(found) : std::nullopt;
}

void setValue(const QString& file, const QByteArray& section, const QByteArray& key, const QByteArray& value) {
    CSimpleIniA ini;
    load(ini, file);
    ini.SetValue(section.constData(), key.constData(), value.constData());
    std::string text;
    if (ini.Save(text) < 0) throw RuntimeFailure(RuntimeFailure::deviceError);
    SafeFile::replace(file, QByteArray::fromStdString(text));
}

} // namespace torvane::IniFile

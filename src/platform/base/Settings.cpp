// SPDX-License-Identifier: MIT
// The settings store over INI files.
#include "Settings.h"
#include "IniFile.h"
#include "NativeText.h"
#include "Paths.h"
#include "RuntimeFailure.h"

#include <cctype>
#include <cmath>
#include <filesystem>
#include <limits>

namespace torvane {

namespace {
// A backslash inside a file's name, as against the separator that the program writes (see NativeText).
constexpr char16_t innerBackslash = 0xDC5C;

bool isEscape(const QString& text, qsizetype at) {
    const auto isHex = [&](qsizetype i) {
        return i < text.size() && std::isxdigit(static_cast<uchar>(text[i].toLatin1())) != 0;
    };
    return text[at] == QLatin1Char('%') && isHex(at + 1) && isHex(at + 2);
}

// A value as one line of the file: what a line can't carry stands as "%" and two digits. A user may call
// a folder " a" or "a\nb". Other values, paths among them, stay as they are.
QString escaped(const QString& value) {
    QString line;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const char16_t unit = value[i].unicode();
        const bool isOuterBlank = unit == ' ' && (i == 0 || i == value.size() - 1);
        if (unit < ' ' || isOuterBlank || unit == innerBackslash || isEscape(value, i)) {
            line += QString::asprintf("%%%02X", unit & 0xFFu);
        } else {
            line += value[i];
        }
    }
    return line;
}

QString unescaped(const QString& line) {
    QString value;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (!isEscape(line, i)) {
            value += line[i];
            continue;
        }
        const auto unit = static_cast<char16_t>(QStringView(line).sliced(i + 1, 2).toUInt(nullptr, 16));
        value += QChar(unit == '\\' ? innerBackslash : unit);
        i += 2;
    }
    return value;
}
} // namespace

// The folder is the system's: a backslash in it is part of a name.
Settings::Settings(const QString& configurationFolder)
    : m_folder(Paths::spelled(NativeText::toNative(configurationFolder))) {}

QString Settings::fileOf(const QString& application) const {
    // An application's name is no path: neither a separator nor ".." must lead elsewhere.
    QString name = application;
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    if (name.startsWith(QLatin1Char('.'))) name.front() = QLatin1Char('_');
    return m_folder + QLatin1Char('/') + name + QLatin1Char('/') + name + QStringLiteral(".conf");
}

QString Settings::GetSetting(const QString& application, const QString& section, const QString& key,
                             const QString& absent) const {
    const auto found = IniFile::value(fileOf(application), section.toUtf8(), key.toUtf8());
    if (!found) return absent;
    // A backslash in a stored path is the separator that the program wrote, not part of a file's name.
    return unescaped(NativeText::fromNative(*found).replace(QChar(innerBackslash), QLatin1Char('\\')));
}

void Settings::SaveSetting(const QString& application, const QString& section, const QString& key,
                           const QString& value) {
    const QString file = fileOf(application);
    const QByteArray folder = Paths::real(file.first(file.lastIndexOf(QLatin1Char('/'))));
    std::error_code error;
    std::filesystem::create_directories(folder.toStdString(), error);
    if (error) throw RuntimeFailure::fromErrno(error.value());
    IniFile::setValue(file, section.toUtf8(), key.toUtf8(), NativeText::toNative(escaped(value)));
}

int Settings::toNumber(const QString& text) {
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) return -1;
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) return 0;
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    // The toolkit's conversion also takes "inf" and "nan", which no setting is.
    if (!isNumber || !std::isfinite(value)) throw RuntimeFailure(RuntimeFailure::typeMismatch);
    const double rounded = std::nearbyint(value);
    using Limits = std::numeric_limits<int>;
    if (rounded < Limits::min() || rounded > Limits::max()) throw RuntimeFailure(RuntimeFailure::overflow);
    return static_cast<int>(rounded);
}

} // namespace torvane

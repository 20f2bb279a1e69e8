// SPDX-License-Identifier: MIT
// The settings store over INI files.
#include "Settings.h"
#include "IniFile.h"
#include "NativeText.h"
#include "Paths.h"
#include "RuntimeFailure.h"

#include <cmath>
#include <filesystem>
#include <limits>

namespace torvane {

Settings::Settings(QString configurationFolder) : m_folder(std::move(configurationFolder)) {}

QString Settings::fileOf(const QString& application) const {
    // An application's name is no path: a separator in it must not lead elsewhere.
    QString name = application;
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return m_folder + QLatin1Char('/') + name + QLatin1Char('/') + name + QStringLiteral(".conf");
}

QString Settings::GetSetting(const QString& application, const QString& section, const QString& key,
                             const QString& absent) const {
    const auto found = IniFile::value(fileOf(application), section.toUtf8(), key.toUtf8());
    if (!found) return absent;
    // A backslash in a stored path is the separator that the program wrote, not part of a file's name.
    return NativeText::fromNative(*found).replace(QChar(0xDC5C), QLatin1Char('\\'));
}

void Settings::SaveSetting(const QString& application, const QString& section, const QString& key,
                           const QString& value) {
    const QString file = fileOf(application);
    const QByteArray folder = Paths::real(file.first(file.lastIndexOf(QLatin1Char('/'))));
    std::error_code error;
    std::filesystem::create_directories(folder.toStdString(), error);
    if (error) throw RuntimeFailure::fromErrno(error.value());
    IniFile::setValue(file, section.toUtf8(), key.toUtf8(), NativeText::toNative(value));
}

int Settings::toNumber(const QString& text) {
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0) return -1;
    if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) return 0;
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber || std::isnan(value)) throw RuntimeFailure(RuntimeFailure::typeMismatch);
    const double rounded = std::nearbyint(value);
    if (std::fabs(rounded) > std::numeric_limits<int>::max()) throw RuntimeFailure(RuntimeFailure::overflow);
    return static_cast<int>(rounded);
}

} // namespace torvane

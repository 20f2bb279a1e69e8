// SPDX-License-Identifier: MIT
// The settings store over INI files.
#include "Settings.h"
#include "Folder.h"
#include "IniFile.h"
#include "NativeText.h"
#include "Paths.h"
#include "RuntimeFailure.h"
#include "SettingLine.h"

#include <cmath>
#include <limits>

namespace torvane {

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
    return found ? SettingLine::textOf(*found) : absent;
}

void Settings::SaveSetting(const QString& application, const QString& section, const QString& key,
                           const QString& value) {
    const QString file = fileOf(application);
    const QByteArray folder = Paths::real(file.first(file.lastIndexOf(QLatin1Char('/'))));
    Folder::make(folder);
    IniFile::setValue(file, section.toUtf8(), key.toUtf8(), SettingLine::of(value));
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

// SPDX-License-Identifier: MIT
// The settings store in INI files.
#include "Settings.h"
#include "FileRights.h"
#include "Folder.h"
#include "IniFile.h"
#include "NativeText.h"
#include "NumberText.h"
#include "Paths.h"
#include "SettingLine.h"

#include <QStringList>

namespace torvane {

// This is a system path: a backslash in it is part of a name.
Settings::Settings(const QString& configurationFolder)
    : m_folder(Paths::spelled(NativeText::toNative(configurationFolder))) {}

QString Settings::fileOf(const QString& application) const {
    // An application's name is no path: neither a separator nor ".." may lead elsewhere.
    QString name = application;
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    if (name.startsWith(QLatin1Char('.'))) name.front() = QLatin1Char('_');
    return m_folder + QLatin1Char('/') + name + QLatin1Char('/') + name + QStringLiteral(".conf");
}

QString Settings::GetSetting(const QString& application, const QString& section, const QString& key,
                             const QString& absent) const {
    const auto kept = m_kept.find(nameOf(application, section, key));
    if (kept != m_kept.end()) return *kept;
    if (m_folder.isEmpty()) return absent;
    const auto found = IniFile::value(fileOf(application), section.toUtf8(), key.toUtf8());
    return found ? SettingLine::textOf(*found) : absent;
}

void Settings::SaveSetting(const QString& application, const QString& section, const QString& key,
                           const QString& value) {
    SaveSettings(application, section, {{key, value}});
}

void Settings::SaveSettings(const QString& application, const QString& section, const Values& values) {
    bool isStored = true;
    try {
        store(application, section, values);
    } catch (const RuntimeFailure&) {
        if (!m_keepsWhatFails) throw;
        isStored = false;
    }
    for (const auto& [key, value] : values) {
        const QString name = nameOf(application, section, key);
        isStored ? void(m_kept.remove(name)) : void(m_kept.insert(name, value));
    }
}

// The folder of a file.
QByteArray Settings::madeFolder(const QString& file) const {
    if (m_folder.isEmpty()) throw RuntimeFailure::ofNoHome();
    const QByteArray folder = Paths::real(file.first(file.lastIndexOf(QLatin1Char('/'))));
    Folder::make(folder, Folder::ownMode);
    return folder;
}

void Settings::store(const QString& application, const QString& section, const Values& values) const {
    const QString file = fileOf(application);
    madeFolder(file);
    QList<std::pair<QByteArray, QByteArray>> lines;
    for (const auto& [key, value] : values) lines.append({key.toUtf8(), SettingLine::of(value)});
    IniFile::setValues(file, section.toUtf8(), lines);
}

void Settings::requireStorable(const QString& application) const {
    const QString file = fileOf(application);
    aboutFile(file, [&] {
        const QByteArray folder = madeFolder(file);
        if (access(folder.constData(), W_OK | X_OK) != 0) failWithErrno();
        FileRights::refuseUnlessWritable(Paths::real(file));
    });
}

// A line end can't be in a name.
QString Settings::nameOf(const QString& application, const QString& section, const QString& key) {
    return QStringList{application, section, key}.join(QLatin1Char('\n')).toCaseFolded();
}

int Settings::toNumber(const QString& text) { return NumberText::toInteger(text.toUtf8()); }

bool Settings::toFlag(const QString& text) {
    const auto is = [&](const char* word) {
        return text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    };
    return is("true") || (!is("false") && toNumber(text) != 0);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Reads includes and checks them against the table of layers.
#include "IncludeRules.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QRegularExpression>

namespace torvane {

using namespace Qt::StringLiterals;

int IncludeRules::readFolder(const QString& folder) {
    const QDir root(folder);
    QDirIterator files(folder, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly)) {
            add(root.relativeFilePath(file.fileName()), QString::fromUtf8(file.readAll()));
        }
    }
    return static_cast<int>(m_texts.size());
}

void IncludeRules::add(const QString& path, const QString& text) { m_texts[path] = text; }

QString IncludeRules::windowOf(const QString& path) const {
    const QString stem = path.section(u'/', -1).section(u'.', 0, 0);
    return m_windows.contains(stem) ? stem : QString();
}

IncludeRules::Layer IncludeRules::layerOf(const QString& path) const {
    if (path.startsWith(u"platform/base/"_s)) return base;
    if (path.startsWith(u"platform/"_s)) return forms;
    if (path.startsWith(u"app/"_s)) return app;
    if (path.startsWith(u"tags/"_s)) return commands;
    if (!windowOf(path).isEmpty()) return window;
    if (path.startsWith(u"toolkit/"_s)) return controls;
    return path.startsWith(u"core/"_s) ? core : module;
}

bool IncludeRules::mayInclude(Layer from, Layer to) {
    switch (from) {
    case base: return to == base;
    case forms: return to == base || to == forms;
    case controls: return to == base || to == forms || to == controls;
    case core: return to == base || to == core;
    case module: return to == base || to == core || to == module;
    case commands: return to == base || to == core || to == module || to == commands;
    case window: return to != app && to != commands;
    case app: return to != commands;
    }
    return false;
}

QString IncludeRules::resolved(const QString& from, const QString& name) const {
    QString beside = QDir::cleanPath(QFileInfo(from).path() + u'/' + name);
    if (m_texts.contains(beside)) return beside;
    return m_texts.contains(QDir::cleanPath(name)) ? QDir::cleanPath(name) : QString();
}

QList<IncludeRules::Include> IncludeRules::includesOf(const QString& path) const {
    static const QRegularExpression form(uR"(^\s*#\s*include\s*(["<])([^">]+)[">])"_s);
    QList<Include> includes;
    int line = 0;
    for (const QString& text : m_texts[path].split(u'\n')) {
        ++line;
        const QRegularExpressionMatch match = form.match(text);
        if (!match.hasMatch()) continue;
        const QString name = match.captured(2);
        includes.append({line, name, match.captured(1) == u"<"_s, resolved(path, name)});
    }
    return includes;
}

// Looks into the installed headers of Qt, since a list of classes could be incomplete.
bool IncludeRules::isOfQtCore(const QString& header) {
    const QDir headers(QLibraryInfo::path(QLibraryInfo::HeadersPath));
    if (header.startsWith(u"QtCore/"_s)) return headers.exists(header);
    return headers.exists(u"QtCore/"_s + header);
}

QString IncludeRules::faultOfForeign(Layer from, const Include& include) const {
    const bool isOfQt = include.name.startsWith(u'Q') || include.name.startsWith(u'q');
    const bool isWithoutWidgets = from == base || from == core || from == module || from == commands;
    if (isOfQt) {
        return isWithoutWidgets && !isOfQtCore(include.name) ? u"a module may use Qt Core only"_s : QString();
    }
    if (include.isBracketed || include.name.endsWith(u".moc"_s)) return {};
    if (include.name.startsWith(u"art/"_s)) {
        return from == app ? QString() : u"only app/ reaches the artwork"_s;
    }
    return u"there is no such file"_s;
}

QString IncludeRules::faultOf(const QString& from, const Include& include) const {
    const Layer layer = layerOf(from);
    if (include.target.isEmpty()) return faultOfForeign(layer, include);
    const Layer target = layerOf(include.target);
    if (target == window && layer != app && windowOf(from) != windowOf(include.target)) {
        return u"only app/ includes a window"_s;
    }
    return mayInclude(layer, target) ? QString() : u"this layer lies above or beside"_s;
}

void IncludeRules::findCircles(const QString& path, QStringList& way, QSet<QString>& done,
                               QStringList& found) const {
    if (done.contains(path)) return;
    way.append(path);
    for (const Include& include : includesOf(path)) {
        if (include.target.isEmpty()) continue;
        const qsizetype start = way.indexOf(include.target);
        if (start < 0) {
            findCircles(include.target, way, done, found);
        } else {
            found.append(
                u"%1:%2: \"%3\": a circle: %4"_s.arg(path)
                    .arg(include.line)
                    .arg(include.name, (way.sliced(start) + QStringList{include.target}).join(u" > "_s)));
        }
    }
    way.removeLast();
    done.insert(path);
}

namespace {
QString folderOf(const QString& path) { return path.section(u'/', 0, -2); }
} // namespace

QMap<QString, QSet<QString>> IncludeRules::foldersIncluded() const {
    QMap<QString, QSet<QString>> included;
    for (const QString& path : m_texts.keys()) {
        for (const Include& include : includesOf(path)) {
            if (include.target.isEmpty() || folderOf(include.target) == folderOf(path)) continue;
            included[folderOf(path)].insert(folderOf(include.target));
        }
    }
    return included;
}

// Repeatedly removes folders that include no remaining folder. Those left are on a circle or lead to one.
void IncludeRules::findFolderCircles(QStringList& found) const {
    QMap<QString, QSet<QString>> open = foldersIncluded();
    for (bool isChanged = true; isChanged;) {
        isChanged = false;
        for (const QString& folder : open.keys()) {
            open[folder].removeIf([&](const QString& target) { return !open.contains(target); });
            if (open[folder].isEmpty()) isChanged = open.remove(folder) > 0;
        }
    }
    if (!open.isEmpty())
        found.append(open.firstKey() + u": a circle of folders: "_s + open.keys().join(u", "_s));
}

void IncludeRules::findMixedFolders(QStringList& found) const {
    QSet<QString> ofModules;
    QSet<QString> ofWindows;
    for (const QString& path : m_texts.keys()) {
        const Layer layer = layerOf(path);
        if (layer == window) ofWindows.insert(folderOf(path));
        if (layer == module || layer == core || layer == controls) ofModules.insert(folderOf(path));
    }
    for (const QString& folder : ofWindows& ofModules)
        found.append(folder + u": a window lies among modules"_s);
}

QStringList IncludeRules::faults() const {
    QStringList found;
    QStringList way;
    QSet<QString> done;
    for (const QString& path : m_texts.keys()) {
        for (const Include& include : includesOf(path)) {
            const QString fault = faultOf(path, include);
            if (fault.isEmpty()) continue;
            found.append(u"%1:%2: \"%3\": %4"_s.arg(path).arg(include.line).arg(include.name, fault));
        }
        findCircles(path, way, done, found);
    }
    findFolderCircles(found);
    findMixedFolders(found);
    return found;
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Parsing of the two tables: tab-separated UTF-8 lines with one line of headings.
#include "Catalogue.h"

#include <QFile>
#include <QRegularExpression>

#include <stdexcept>

namespace torvane {

namespace {

QList<QStringList> rowsOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + path.toStdString());
    QList<QStringList> rows;
    for (const QString& line : QString::fromUtf8(file.readAll()).remove('\r').split('\n').mid(1)) {
        if (!line.isEmpty()) rows << line.split('\t');
    }
    return rows;
}

QString keyOf(const QString& window, const QString& control) { return window + '/' + control; }

} // namespace

Catalogue::Catalogue(const QString& folder) {
    for (const QStringList& row : rowsOf(folder + "/windows.tsv")) {
        if (row.size() > 3) windows[row[0]] = QSize(row[2].toInt(), row[3].toInt());
    }
    for (const QStringList& row : rowsOf(folder + "/controls.tsv")) {
        if (row.size() < 10) continue;
        const QRectF rect(row[4].toDouble(), row[5].toDouble(), row[6].toDouble(), row[7].toDouble());
        controls[keyOf(row[0], row[1])] = {rect, row[9]};
    }
}

const Catalogue::Control& Catalogue::control(const QString& window, const QString& name) const {
    const auto found = controls.find(keyOf(window, name));
    if (found == controls.end()) {
        throw std::runtime_error("no control " + keyOf(window, name).toStdString() + " in the catalogue");
    }
    return *found;
}

QSize Catalogue::windowSize(const QString& window) const {
    const auto found = windows.find(window);
    if (found == windows.end())
        throw std::runtime_error("no window " + window.toStdString() + " in the catalogue");
    return *found;
}

QRectF Catalogue::rect(const QString& window, const QString& name) const {
    return control(window, name).rect;
}

QRectF Catalogue::united(const QString& window, const QStringList& names) const {
    QRectF all;
    for (const QString& name : names) all |= rect(window, name);
    return all;
}

QList<QRectF> Catalogue::places(const QString& window, const QStringList& names) const {
    QList<QRectF> rects;
    for (const QString& name : names) {
        const QRectF exact = rect(window, name);
        rects << QRectF(qRound(exact.left()), qRound(exact.top()), qRound(exact.width()),
                        qRound(exact.height()));
    }
    return rects;
}

QColor Catalogue::mask(const QString& window, const QString& name) const {
    static const QRegularExpression pattern("mask 0x([0-9A-F]{2})([0-9A-F]{2})([0-9A-F]{2})");
    const auto match = pattern.match(control(window, name).notes);
    if (!match.hasMatch()) {
        throw std::runtime_error("no mask colour for " + keyOf(window, name).toStdString());
    }
    const auto channel = [&](int group) { return match.captured(group).toInt(nullptr, 16); };
    return {channel(3), channel(2), channel(1)}; // the table's words are 0xBBGGRR
}

} // namespace torvane

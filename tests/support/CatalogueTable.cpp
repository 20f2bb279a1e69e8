// SPDX-License-Identifier: MIT
// Reads the tables and notes of the catalogue.
#include "CatalogueTable.h"

#include <QFile>
#include <QRegularExpression>

namespace torvane {

using namespace Qt::StringLiterals;

QList<QMap<QString, QString>> tableRows(const QString& file) {
    QFile table(file);
    if (!table.open(QIODevice::ReadOnly)) return {};
    QStringList lines = QString::fromUtf8(table.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList names = lines.takeFirst().split(u'\t');
    QList<QMap<QString, QString>> rows;
    for (const QString& line : lines) {
        const QStringList cells = line.split(u'\t');
        QMap<QString, QString> row;
        for (qsizetype i = 0; i < names.size(); ++i) row[names[i]] = cells.value(i);
        rows.append(row);
    }
    return rows;
}

CatalogueNotes::CatalogueNotes(const QString& notes) {
    // A comma inside quotes is no separator.
    static const QRegularExpression piece(uR"((?:[^,"]|"[^"]*")+)"_s);
    auto pieces = piece.globalMatch(notes);
    while (pieces.hasNext()) m_pieces.append(pieces.next().captured().trimmed());
}

bool CatalogueNotes::take(const QString& word) { return m_pieces.removeOne(word); }

std::optional<QString> CatalogueNotes::takeAfter(const QString& word) {
    for (qsizetype i = 0; i < m_pieces.size(); ++i) {
        if (m_pieces[i].startsWith(word + u' ')) return m_pieces.takeAt(i).sliced(word.size() + 1);
    }
    return std::nullopt;
}

QString CatalogueNotes::takeQuoted(const QString& word) {
    const QString quoted = takeAfter(word).value_or(QString());
    return quoted.size() < 2 ? QString() : quoted.sliced(1).chopped(1);
}

QSize CatalogueNotes::takeSize(const QString& word) {
    const std::optional<QString> size = takeAfter(word);
    return size ? QSize(size->section(u'x', 0, 0).toInt(), size->section(u'x', 1).toInt()) : QSize();
}

int CatalogueNotes::takeNumber(const QString& word) {
    const std::optional<QString> number = takeAfter(word);
    return number ? number->section(u' ', 0, 0).toInt() : -1;
}

CatalogueNotes::ColourPair CatalogueNotes::takeColours(const QString& word) {
    const auto colour = [](const QString& text) -> std::optional<OleColour> {
        if (text.isEmpty()) return std::nullopt;
        if (text.startsWith(u"sys "_s)) return Colours::system(text.sliced(4).toInt());
        return text.toUInt(nullptr, 16);
    };
    const QString both = takeAfter(word).value_or(QString());
    return {colour(both.section(u" over "_s, 0, 0)), colour(both.section(u" over "_s, 1))};
}

std::optional<FontSpec> CatalogueNotes::takeFont() {
    static const QRegularExpression form(uR"(^(V|M|T|Trebuchet MS|Courier New)(\d+(?:\.\d+)?)(b?)$)"_s);
    static const QMap<QString, FontSpec::Face> faces{{u"V"_s, FontSpec::Verdana},
                                                     {u"M"_s, FontSpec::MSSansSerif},
                                                     {u"T"_s, FontSpec::Tahoma},
                                                     {u"Trebuchet MS"_s, FontSpec::TrebuchetMS},
                                                     {u"Courier New"_s, FontSpec::CourierNew}};
    for (qsizetype i = 0; i < m_pieces.size(); ++i) {
        const QRegularExpressionMatch match = form.match(m_pieces[i]);
        if (!match.hasMatch()) continue;
        m_pieces.removeAt(i);
        return FontSpec{faces[match.captured(1)], match.captured(2).toDouble(), !match.captured(3).isEmpty()};
    }
    return std::nullopt;
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// One entry of the web lists as the hidden list holds it: one text of name, 200 blanks, "$", address, "$" and
// kind. Whoever needs a part of it cuts the text at each "$", so that a "$" in a name or an address shifts
// the parts after it.
#pragma once

#include <QString>
#include <QStringList>

namespace torvane {

class WebEntry {
public:
    /// Any text; what follows a fourth piece is ignored.
    explicit WebEntry(const QString& text) : m_text(text), m_pieces(text.split(QLatin1Char('$'))) {}
    /// The text of an entry.
    static QString textOf(const QString& name, const QString& address, const QString& kind);

    /// Whether it is the text "***", which stands in for no page: nothing can be done with it.
    bool isInert() const { return m_text == QStringLiteral("***"); }

    // The pieces. Each fails with subscript if the text has fewer.
    /// With the blanks after it.
    QString name() const { return piece(0); }
    QString address() const { return piece(1); }
    QString kind() const { return piece(2); }

    /// Whether it is of the shared list: these can't be deleted.
    bool isShared() const { return kind() == QStringLiteral("system"); }
    /// Whether a browser may get the address: its scheme is http, https or file, in letters of any case.
    bool isPage() const;
    /// The line of the file that it was read from, without a line end, in code page 1252. Not so if the name
    /// ends with blanks or has 200 of them in a row, or if name or address contain "$".
    QByteArray line() const;

private:
    QString piece(int number) const;

    QString m_text;
    QStringList m_pieces;
};

} // namespace torvane

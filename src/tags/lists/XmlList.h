// SPDX-License-Identifier: MIT
// A list in XML: a "datafile" of "game" or "machine" elements with "rom" elements in them.
#pragma once

#include "ListReader.h"

#include <QXmlStreamReader>

namespace torvane {

/// A list comes from strangers: it may declare no entities, which can blow up, and no element may be deep or
/// long without end. Encodings are those of Qt: UTF-8, UTF-16 with its mark, and ISO 8859-1. UTF-8 is checked
/// here: Qt's reader takes a wrong byte for a fault of the line where the piece with it begins, or for the
/// end of the list.
class XmlList : public ListReader {
public:
    explicit XmlList(Takers takers);

    void add(const QByteArray& bytes) override;
    void finish() override;

private:
    qint64 line() const override { return m_xml.lineNumber(); }
    void start();
    void decode(const QByteArray& bytes);
    void parse(const QByteArray& bytes);
    void takeToken();
    void beginElement();
    void endElement();

    QByteArray m_start; // held back until the declaration is whole
    bool m_isStarted = false;
    bool m_isUtf8 = true;
    QByteArray m_cut; // the beginning of a character of UTF-8, or a wrong one
    QXmlStreamReader m_xml;
    qint64 m_bytesOfToken = 0; // that have come since the last token
    int m_depth = 0;
    bool m_isInGame = false;
    bool m_isComplete = false;
    QByteArray* m_field = nullptr; // of the game, that the text belongs to
    QString m_text;
};

} // namespace torvane

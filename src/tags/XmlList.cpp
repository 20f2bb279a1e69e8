// SPDX-License-Identifier: MIT
// Elements and their texts, via Qt's reader.
#include "XmlList.h"

namespace torvane {

namespace {
constexpr qint64 longestToken = 1 << 20; // in bytes; the whole reading takes no more memory than this
constexpr int deepest = 32;
constexpr qsizetype declarationSize = 1024; // in bytes
constexpr qsizetype longestText = 4096;     // in characters; nothing longer fits into a tag

constexpr int rootDepth = 1;
constexpr int gameDepth = 2;
constexpr int fieldDepth = 3;
} // namespace

XmlList::XmlList(Takers takers) : ListReader(std::move(takers)) { m_xml.setNamespaceProcessing(false); }

// Qt's reader changes the encoding at the declaration, and then decodes the current piece anew: that has to
// begin with the mark of UTF-16.
void XmlList::add(const QByteArray& bytes) {
    if (m_isStarted) return parse(bytes);
    m_start += bytes;
    if (m_start.size() < declarationSize) return;
    m_isStarted = true;
    parse(m_start);
}

void XmlList::parse(const QByteArray& bytes) {
    if (hasFailed()) return;
    m_xml.addData(bytes);
    m_bytesOfToken += bytes.size();
    while (!hasFailed() && m_xml.readNext() != QXmlStreamReader::Invalid &&
           m_xml.tokenType() != QXmlStreamReader::EndDocument) {
        takeToken();
        m_bytesOfToken = 0;
    }
    if (hasFailed()) return;
    const bool needsMore = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    if (m_xml.hasError() && !needsMore) return fail(m_xml.errorString().toUtf8());
    if (m_bytesOfToken > longestToken) fail("a text or an element is too long");
}

void XmlList::finish() {
    if (!m_isStarted) parse(m_start);
    if (!hasFailed() && !m_isComplete) fail("it ends before its last element does");
}

void XmlList::takeToken() {
    switch (m_xml.tokenType()) {
    case QXmlStreamReader::DTD:
        if (!m_xml.entityDeclarations().isEmpty()) fail("it declares entities");
        break;
    case QXmlStreamReader::StartElement: beginElement(); break;
    case QXmlStreamReader::EndElement: endElement(); break;
    case QXmlStreamReader::Characters:
        if (m_field != nullptr && m_text.size() < longestText)
            m_text += m_xml.text().left(longestText - m_text.size());
        break;
    default: break;
    }
}

void XmlList::beginElement() {
    ++m_depth;
    const QStringView name = m_xml.qualifiedName();
    if (m_depth > deepest) return fail("elements are nested too deep");
    if (m_depth == rootDepth && name != QLatin1String("datafile")) return fail("it is no list of games");
    const QXmlStreamAttributes attributes = m_xml.attributes();
    if (m_depth == gameDepth && (name == QLatin1String("game") || name == QLatin1String("machine"))) {
        m_isInGame = true;
        game().name = attributes.value(QLatin1String("name")).left(longestText).toUtf8().simplified();
    }
    if (m_depth != fieldDepth || !m_isInGame) return;
    if (name == QLatin1String("description")) m_field = &game().description;
    if (name == QLatin1String("manufacturer")) m_field = &game().manufacturer;
    if (name == QLatin1String("publisher")) m_field = &game().publisher;
    if (name == QLatin1String("year")) m_field = &game().year;
    m_text.clear();
    if (name != QLatin1String("rom")) return;
    beginRom();
    for (const auto& attribute : attributes)
        setRom(attribute.qualifiedName().toUtf8(), attribute.value().toUtf8());
    endRom();
}

void XmlList::endElement() {
    --m_depth;
    if (m_depth == fieldDepth - 1 && m_field != nullptr) {
        *m_field = m_text.simplified().toUtf8();
        m_field = nullptr;
    }
    if (m_depth == gameDepth - 1 && m_isInGame) {
        m_isInGame = false;
        game().end();
    }
    m_isComplete = m_depth == 0;
}

} // namespace torvane

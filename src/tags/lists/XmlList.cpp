// SPDX-License-Identifier: MIT
// Elements and their texts, via Qt's reader.
#include "XmlList.h"

#include <QStringConverter>
#include <algorithm>

namespace torvane {

namespace {
constexpr qint64 longestToken = 1 << 20; // in bytes; the whole reading takes no more memory than this
constexpr int deepestElement = 32;
constexpr qsizetype declarationSize = 1024; // in bytes
constexpr qsizetype longestText = 4096;     // in characters; nothing longer fits into a tag
constexpr qsizetype longestCharacter = 4;   // in bytes of UTF-8
const QByteArray wrongBytes = QByteArrayLiteral("the text is not UTF-8");

constexpr int rootDepth = 1;
constexpr int gameDepth = 2;
constexpr int fieldDepth = 3;

// By its first bytes, as Qt's reader sees them, and by its declaration. What a wrong byte is depends on the
// answer, so the declaration is read without any.
bool isUtf8(QByteArray beginning) {
    const auto marked = QStringConverter::encodingForData(beginning, u'<');
    if (marked) return *marked == QStringConverter::Utf8;
    std::replace_if(
        beginning.begin(), beginning.end(), [](char c) { return static_cast<signed char>(c) < 0; }, '?');
    QXmlStreamReader declaration(beginning);
    declaration.readNext();
    const QByteArray name = declaration.documentEncoding().toLatin1();
    return name.isEmpty() || QStringConverter::encodingForName(name.constData()) == QStringConverter::Utf8;
}

// How many bytes there are before the first character that is cut or wrong.
qsizetype wholeLength(QByteArrayView text) {
    for (qsizetype cut = 0; cut < std::min(longestCharacter, text.size()); ++cut) {
        if (text.chopped(cut).isValidUtf8()) return text.size() - cut;
    }
    qsizetype whole = 0;
    for (qsizetype size = 1; size <= longestCharacter && whole + size <= text.size(); ++size) {
        if (!text.sliced(whole, size).isValidUtf8()) continue;
        whole += size;
        size = 0;
    }
    return whole;
}
} // namespace

XmlList::XmlList(Takers takers) : ListReader(std::move(takers)) { m_xml.setNamespaceProcessing(false); }

// Qt's reader changes the encoding at the declaration, and then decodes the current piece anew: that has to
// begin with the mark of UTF-16.
void XmlList::add(const QByteArray& bytes) {
    if (hasFailed()) return;
    if (m_isStarted) return decode(bytes);
    m_start += bytes;
    if (m_start.size() >= declarationSize) start();
}

void XmlList::start() {
    m_isStarted = true;
    m_isUtf8 = isUtf8(m_start);
    decode(m_start);
}

// What comes before a wrong byte is parsed first: it tells the line.
void XmlList::decode(const QByteArray& bytes) {
    if (!m_isUtf8) return parse(bytes);
    m_cut += bytes;
    const qsizetype whole = wholeLength(m_cut);
    parse(m_cut.first(whole));
    m_cut.remove(0, whole);
    if (!hasFailed() && m_cut.size() >= longestCharacter) fail(wrongBytes);
}

void XmlList::parse(const QByteArray& bytes) {
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
    if (!m_isStarted) start();
    if (!hasFailed() && !m_cut.isEmpty()) fail(wrongBytes);
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
    if (m_depth > deepestElement) return fail("elements are nested too deep");
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

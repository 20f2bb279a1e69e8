// SPDX-License-Identifier: MIT
// Checking texts, and merging them with a tag.
#include "GivenTag.h"
#include "catalogue/TagInput.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NativeText.h"

#include <QList>
#include <array>

namespace torvane {

namespace {
struct FieldPair {
    const char* name;
    std::optional<QByteArray> GivenTag::*given;
    QByteArray TagLine::Fields::*stored;
};
constexpr std::array<FieldPair, 4> pairs = {{{"title", &GivenTag::title, &TagLine::Fields::title},
                                             {"company", &GivenTag::company, &TagLine::Fields::company},
                                             {"info", &GivenTag::info, &TagLine::Fields::info},
                                             {"date", &GivenTag::date, &TagLine::Fields::date}}};

// The characters of given bytes; what is not UTF-8 is a lone surrogate.
QString textOf(const QByteArray& given) {
    return NativeText::fromNative(given).replace(QChar(u'\xDC5C'), QLatin1Char('\\'));
}

const char* reasonAgainst(const QString& character) {
    if (character.size() == 1 && character.front().isSurrogate()) return "is not UTF-8";
    if (character.front().category() == QChar::Other_Control) return "is a control character";
    if (character.front() == QChar(u'§')) return "separates the fields of a tag";
    return CodePage1252::holds(character) ? nullptr : "is not in code page 1252";
}

QByteArray faultOfText(const QByteArray& given) {
    const QString text = textOf(given);
    int number = 0;
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const QString character = text.mid(at, isPair ? 2 : 1);
        at += character.size();
        ++number;
        const char* reason = reasonAgainst(character);
        if (reason == nullptr) continue;
        const bool isShown = character.front().isPrint() || isPair;
        return "character " + QByteArray::number(number) +
               (isShown ? " (" + character.toUtf8() + ") " : QByteArray(" ")) + reason;
    }
    return {};
}

QByteArray faultOfField(const char* name, const QByteArray& given) {
    const QByteArray fault = faultOfText(given);
    return fault.isEmpty() ? fault : name + (": " + fault);
}

QByteArray bytesOf(const QByteArray& given) { return CodePage1252::toBytes(textOf(given)); }

bool isSame(const QByteArray& given, const QByteArray& present) {
    return CodePage1252::holds(textOf(given)) && bytesOf(given) == present;
}

QByteArray faultOfMissing(const TagLine::Fields& fields) {
    QByteArrayList missing;
    if (fields.title.isEmpty()) missing += "title";
    if (fields.company.isEmpty()) missing += "company";
    if (fields.info.isEmpty()) missing += "info";
    if (missing.isEmpty()) return {};
    return "a tag needs a title, a company and an info; missing: " + missing.join(", ");
}

// Names the longest field, which is the one to be shortened, and its first character that is too much.
QByteArray faultOfLength(const TagLine::Fields& fields) {
    const qsizetype excess = TagInput::excessOf(fields);
    if (excess <= 0) return {};
    const FieldPair* longest = pairs.data();
    for (const FieldPair& pair : pairs) {
        if ((fields.*pair.stored).size() > (fields.*longest->stored).size()) longest = &pair;
    }
    const qsizetype fitting = std::max<qsizetype>((fields.*longest->stored).size() - excess, 0);
    return longest->name + (": character " + QByteArray::number(fitting + 1)) +
           " and what follows make the tag too long to be read";
}

// `image`: the bytes before the tag.
QByteArray faultOfGame(const TagLine::Fields& fields, qint64 image) {
    if (!TagWindow::isTooShort(image + TagLine::build(fields).size())) return {};
    return "no tag is read in a file below " + QByteArray::number(2 * TagWindow::size) + " bytes";
}

// What a separator completes: the marker at the end of a text, or the shifted form at the beginning of the
// line.
QByteArray faultOfReading(const TagLine::Fields& fields) {
    const QByteArray markerText = TagLine::marker.chopped(1);
    for (const FieldPair& pair : pairs) {
        const QByteArray& text = fields.*pair.stored;
        if (!text.endsWith(markerText)) continue;
        return pair.name + (": character " + QByteArray::number(text.size() - markerText.size() + 1)) + ": " +
               markerText + " at the end of a text begins another tag";
    }
    const QByteArray line = TagLine::build(fields);
    const bool isShifted = TagLine::tagPart(line).startsWith(TagLine::shiftedCompany);
    if (!isShifted || fields.company == TagLine::shiftedCompany) return {};
    return "title: character 1: after this company it begins another form of tag";
}
} // namespace

GivenTag GivenTag::of(const TagLine::Fields& fields) {
    const auto text = [](const QByteArray& bytes) { return CodePage1252::fromBytes(bytes).toUtf8(); };
    return {text(fields.title), text(fields.company), text(fields.info), text(fields.date)};
}

QByteArray GivenTag::fault() const {
    for (const FieldPair& pair : pairs) {
        const std::optional<QByteArray>& given = this->*pair.given;
        QByteArray fault = given ? faultOfField(pair.name, *given) : QByteArray();
        if (!fault.isEmpty()) return fault;
    }
    return {};
}

GivenTag::Result GivenTag::over(const std::optional<TagWindow::Tag>& present, qint64 length,
                                const QByteArray& today) const {
    Result result;
    if (present) result.fields = present->fields;
    for (const FieldPair& pair : pairs) {
        const std::optional<QByteArray>& given = this->*pair.given;
        QByteArray& stored = result.fields.*pair.stored;
        if (!given || (present && isSame(*given, stored))) continue;
        result.fault = faultOfField(pair.name, *given);
        if (!result.fault.isEmpty()) return result;
        stored = bytesOf(*given);
        result.isNew = true;
    }
    if (!result.isNew) return result;
    if (!date) result.fields.date = today;
    // Where there is a tag, the image that remains of it gets a line end.
    const qint64 image = present ? present->imageSize + TagLine::lineEnd.size() : length;
    result.fields.size = QByteArray::number(image);
    result.fault = faultOfMissing(result.fields);
    if (result.fault.isEmpty()) result.fault = faultOfReading(result.fields);
    if (result.fault.isEmpty()) result.fault = faultOfLength(result.fields);
    if (result.fault.isEmpty()) result.fault = faultOfGame(result.fields, image);
    return result;
}

} // namespace torvane

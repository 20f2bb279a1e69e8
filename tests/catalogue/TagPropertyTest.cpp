// SPDX-License-Identifier: MIT
// Generated tags, compared with a plain reference of the format: what is built, what is read back, and what
// remains of the image, for all bytes in all fields. Some thousand go through real files. TORVANE_TAGS sets
// the number of tags; `./prove tags` makes a million.
#include "ID3Fixture.h"
#include "catalogue/TagLine.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/RuntimeFailure.h"
#include "support/TagReference.h"
#include "support/TestMain.h"

#include <array>
#include <random>

using namespace torvane;

namespace {
constexpr int usualTags = 50'000;
constexpr int files = 1000; // each is synced four times

int tagCount() {
    const int wanted = qEnvironmentVariableIntValue("TORVANE_TAGS");
    return wanted > 0 ? wanted : usualTags;
}

// Generates the special characters of the format far more often than by chance.
class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    std::string field() {
        static const std::array<std::string, 8> signs = {
            "\xA7", "V\xF6\xA7R\xE4N", "V\xF6", "R\xE4N", "ID3TAG\xA7", "\r\n", " ", std::string(1, '\0')};
        std::string text;
        for (int i = below(below(40) == 0 ? 200 : 12); i > 0; --i) {
            text += below(30) == 0 ? signs[static_cast<size_t>(below(8))]
                                   : std::string(1, static_cast<char>(below(256)));
        }
        return text;
    }
    std::string size() {
        switch (below(12)) {
        case 0: return field();
        case 1: return std::to_string(below(40)) + ".5";
        case 2: return "-" + std::to_string(below(3));
        default: return std::to_string(below(60));
        }
    }
    reference::Tag tag() { return {field(), field(), field(), field(), size()}; }

private:
    std::mt19937 m_random;
};

QByteArray bytes(const std::string& text) { return QByteArray::fromStdString(text); }

TagLine::Fields fieldsOf(const reference::Tag& tag) {
    return {bytes(tag.company), bytes(tag.title), bytes(tag.date), bytes(tag.info), bytes(tag.size)};
}

std::optional<reference::Tag> readTag(const QByteArray& file) {
    std::optional<reference::Tag> read;
    ignoring([&] {
        const TagLine::Fields tag = TagLine::fields(TagLine::tagPart(file));
        read = {tag.company.toStdString(), tag.title.toStdString(), tag.date.toStdString(),
                tag.info.toStdString(), tag.size.toStdString()};
    });
    return read;
}

std::optional<std::string> keptImage(const QByteArray& file) {
    std::optional<std::string> image;
    ignoring([&] { image = TagLine::keptImage(file).toByteArray().toStdString(); });
    return image;
}

// Whether all fields can be read back: the format can't escape a separator, and a company and a title
// together may look like the one company that contains a separator.
bool isPlain(const reference::Tag& tag) {
    const auto holdsNone = [](const std::string& text) {
        return text.find(reference::separator) == text.npos;
    };
    const bool isKnown = tag.company == reference::shiftedCompany;
    const std::string beginning = tag.company + reference::separator + tag.title;
    const bool looksKnown = beginning.rfind(reference::shiftedCompany, 0) == 0;
    return (isKnown || (holdsNone(tag.company) && !looksKnown)) && holdsNone(tag.title) &&
           holdsNone(tag.date) && holdsNone(tag.info) && holdsNone(tag.size);
}

QString text(const std::string& field) { return CodePage1252::fromBytes(bytes(field)); }

std::string orBlank(const std::string& field) { return field.empty() ? " " : field; }
} // namespace

class TagPropertyTest : public ID3Fixture {
    Q_OBJECT

private slots:
    void any_tag_is_built_read_and_stripped_like_the_reference() {
        Generator generator(2003);
        const int tags = tagCount();
        int plain = 0;
        for (int i = 0; i < tags; ++i) {
            const reference::Tag tag = generator.tag();
            const std::string image = generator.field();
            const QByteArray line = TagLine::build(fieldsOf(tag));
            if (line != bytes(reference::lineOf(tag))) QFAIL(bytes(reference::lineOf(tag)).toHex());
            const std::string file = image + line.toStdString();
            const std::optional<reference::Tag> read = readTag(bytes(file));
            if (read != reference::tagIn(file)) QFAIL(bytes(file).toHex());
            if (keptImage(bytes(file)) != reference::imageIn(file)) QFAIL(bytes(file).toHex());
            const bool isAlone = image.find(reference::marker) == image.npos;
            if (!isAlone || !isPlain(tag)) continue;
            ++plain;
            if (read != tag) QFAIL(bytes(file).toHex());
        }
        QVERIFY2(plain > tags / 3, "the generator makes too few tags that can be read again");
    }
    void every_byte_in_every_field_is_where_the_reference_puts_it() {
        for (int byte = 0; byte < 256; ++byte) {
            for (int place = 0; place < 5; ++place) {
                std::array<std::string, 5> values = {"Acme", "Title", "1/2/03", "Info", "3000"};
                for (const std::string& value : {std::string(1, static_cast<char>(byte)),
                                                 "a" + std::string(2, static_cast<char>(byte)) + "b"}) {
                    values[static_cast<size_t>(place)] = value;
                    const reference::Tag tag{values[0], values[1], values[2], values[3], values[4]};
                    const QByteArray file = "rom" + TagLine::build(fieldsOf(tag));
                    const std::optional<reference::Tag> read = readTag(file);
                    QVERIFY(read == reference::tagIn(file.toStdString()));
                    QCOMPARE(read == tag, byte != 0xA7);
                }
            }
        }
    }
    void tags_in_real_files_are_saved_read_and_stripped_like_the_reference() {
        Generator generator(1989);
        for (int i = 0; i < files; ++i) {
            const std::string image(static_cast<size_t>(2048 + generator.below(300)), 'r');
            const reference::Tag tag = generator.tag();
            const QString path = file(bytes(image));
            id3->NewCompany = text(tag.company);
            id3->NewTitle = text(tag.title);
            id3->NewDate = text(tag.date);
            id3->NewInfo = text(tag.info);
            id3->SaveRomTag(path, [] {});
            const std::string saved =
                image + reference::lineOf({orBlank(tag.company), orBlank(tag.title), tag.date,
                                           orBlank(tag.info), std::to_string(image.size())});
            QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes(saved));
            id3->ReadRomTag(path, panel);
            checkPanel(saved);
            const std::optional<std::string> left = reference::imageIn(saved);
            QCOMPARE(ignoring([&] { ID3::StripRomTag(path); }), left.has_value());
            QCOMPARE(folder.read(QStringLiteral("game.gb")), bytes(left ? *left + "\r\n" : saved));
        }
    }

private:
    void checkPanel(const std::string& saved) {
        std::optional<reference::Tag> tag = reference::tagIn(saved.substr(saved.size() - 1025, 1024));
        const std::optional<double> size = tag ? reference::numberIn(tag->size) : std::nullopt;
        // With a size of more than 32 bits of kilobytes the file appears untagged.
        if (!size || std::fabs(reference::halfToEven(*size / 1000)) > 2147483647.0) tag.reset();
        QCOMPARE(panel.tagged, tag.has_value());
        if (!tag) return;
        QCOMPARE(panel.company, text(tag->company));
        QCOMPARE(panel.title, text(tag->title));
        QCOMPARE(panel.date, text(tag->date));
        QCOMPARE(panel.info, text(tag->info));
    }
};

TORVANE_GUILESS_TEST(TagPropertyTest)
#include "TagPropertyTest.moc"

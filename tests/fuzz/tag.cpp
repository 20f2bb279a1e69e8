// SPDX-License-Identifier: MIT
// The tag reader on any file: it shows what a plain reading of the format gives.
// Input: the name of the file, how many bytes precede the content, and the content.
#include "Fuzz.h"
#include "catalogue/ID3.h"
#include "catalogue/TagLine.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/NumberText.h"
#include "platform/base/RuntimeFailure.h"
#include "support/TagReference.h"

#include <array>
#include <climits>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr std::array<const char*, 4> names = {"game.gb", "game.zip", "game", "game.rev.zip"};
constexpr int mostBeforeTag = 2100; // tags are only read from files of at least 2048 bytes

struct ShownPanel : GamePanel {
    QString missing, format;
    bool isTagged = false;
    RomTagRecord shown;
    void showTag(const RomTagRecord& tag) override {
        isTagged = true;
        shown = tag;
    }
    void showNoTag(const QString& text) override { missing = text; }
    void showFormat(const QString& text) override { format = text; }
};

struct NoMessages : MessageBoxes {
    int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
};

struct Expected {
    std::optional<reference::Tag> tag; // nothing for a file that is shown as untagged
    int kilobytes = 0;
};

Expected expectedOf(const std::string& file) {
    const Expected untagged{std::nullopt, static_cast<int>(file.size() / 1000)};
    if (file.size() < 2048) return untagged;
    const std::optional<reference::Tag> tag = reference::tagIn(file.substr(file.size() - 1025, 1024));
    const std::optional<double> size = tag ? reference::numberIn(tag->size) : std::nullopt;
    const double kilobytes = size ? reference::halfToEven(*size / 1000) : INFINITY;
    if (std::fabs(kilobytes) > INT_MAX) return untagged;
    return {tag, static_cast<int>(kilobytes)};
}

std::string formatOf(const Expected& expected, const std::string& name) {
    const int kb = expected.kilobytes;
    const std::string bySize = kb > 1024 && kb < 2048   ? "GameBoy"
                               : kb > 2048 && kb < 4096 ? "GameBoy Color"
                               : kb > 4096              ? "GameBoy Advance"
                                                        : "";
    const std::string zip = name == "game.zip" ? "Formato .ZIP" : "";
    const std::string first = expected.tag ? zip : bySize;
    const std::string second = expected.tag ? bySize : zip;
    return !first.empty() ? first : !second.empty() ? second : "Former";
}

void checkPieces(const QByteArray& bytes) {
    const std::string all = bytes.toStdString();
    const std::optional<reference::Tag> expected = reference::tagIn(all);
    const bool isRead = ignoring([&] {
        const TagLine::Fields tag = TagLine::fields(TagLine::tagPart(bytes));
        require(expected.has_value(), "fields are read of a whole tag alone");
        require(reference::Tag{tag.company.toStdString(), tag.title.toStdString(), tag.date.toStdString(),
                               tag.info.toStdString(), tag.size.toStdString()} == *expected,
                "fields are the pieces between separators");
        require(TagLine::storedSizeText(TagLine::tagPart(bytes)) == tag.size, "the size is one of them");
    });
    require(isRead == expected.has_value(), "a whole tag is read");
    std::optional<double> number;
    ignoring([&] { number = NumberText::toReal(bytes); });
    require(number == reference::numberIn(all), "a decimal number is one");
}

QString languageFileIn(const Scratch& folder) {
    folder.write("lang.tvl", "[globals]\nnodisp=missing\n");
    return QString::fromStdString(folder.path() + "/lang.tvl");
}

void checkField(const QString& shown, const std::string& stored) {
    require(CodePage1252::toBytes(shown).toStdString() == stored, "a field is shown unchanged");
}

void checkShown(const ID3& id3, const ShownPanel& panel, const std::string& file, const std::string& name) {
    const Expected expected = expectedOf(file);
    const RomTagRecord& tag = id3.RomTag;
    const reference::Tag fields = expected.tag.value_or(reference::Tag{});
    require(panel.isTagged == expected.tag.has_value(), "a tag in the last 1024 bytes is shown");
    require(panel.missing.isEmpty() == panel.isTagged, "a missing tag is reported");
    checkField(tag.Company, fields.company);
    checkField(tag.Title, fields.title);
    checkField(tag.Date, fields.date);
    checkField(tag.Info, fields.info);
    require(!panel.isTagged || panel.shown.Title == tag.Title, "the panel gets what was read");
    require(tag.SizeKB == expected.kilobytes, "the size is in thousands of bytes");
    require(tag.Format.toStdString() == formatOf(expected, name), "the size or an archive gives the format");
    require(panel.format == tag.Format + QStringLiteral(" [%1KB]").arg(tag.SizeKB), "both are shown");
}
} // namespace

FUZZ_TARGET(tag) {
    static const Scratch folder;
    static const Globals globals{{}, {}, {}, languageFileIn(folder), {}};
    static const LanguageTables language(globals);
    static NoMessages messages;
    Input input(data, size);
    const std::string name = names[static_cast<size_t>(input.byte()) % names.size()];
    const std::string front(static_cast<size_t>(input.number(mostBeforeTag)), 'r');
    const QByteArray end = input.rest();
    checkPieces(end);
    const std::string file = front + end.toStdString();
    folder.write(name, file);
    ID3 id3(globals, language, messages);
    id3.RomTag.Format = QStringLiteral("Former");
    ShownPanel panel;
    const QString path = QString::fromStdString(folder.path() + '/' + name);
    id3.ReadRomTag(path, panel);
    checkShown(id3, panel, file, name);
    require(id3.HasRomTag(path) == (reference::cut(file, reference::marker).size() > 1),
            "a marker anywhere is a tag");
    return 0;
}

// SPDX-License-Identifier: MIT
// The four operations that write tags, on any file: the result is what a plain reading of the format gives,
// and a refusal leaves the file as it was.
// Input: the operation, how many bytes precede the content, the four fields, and the content.
#include "Fuzz.h"
#include "catalogue/ID3.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/RuntimeFailure.h"
#include "support/TagReference.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
constexpr int mostInFront = 2100; // tags are only replaced in files of at least 2048 bytes
const std::string name = "game.gb";

struct Messages : MessageBoxes {
    int shown = 0;
    int MsgBox(const QString&, int, const QString&) override {
        ++shown;
        return MsgBoxFlags::answerOk;
    }
};

struct UnusedPanel : GamePanel {
    bool isTagged = false;
    void showTag(const RomTagRecord&) override { isTagged = true; }
    void showNoTag(const QString&) override {}
    void showFormat(const QString&) override {}
};

struct Fields {
    QString company, title, date, info;
};

std::string bytesOf(const QString& text) { return CodePage1252::toBytes(text).toStdString(); }

std::string orBlank(const std::string& text) { return text.empty() ? " " : text; }

std::string newLine(const Fields& fields, size_t size) {
    return reference::lineOf({orBlank(bytesOf(fields.company)), orBlank(bytesOf(fields.title)),
                              bytesOf(fields.date), orBlank(bytesOf(fields.info)), std::to_string(size)});
}

// One operation and the expected file after it; nothing if it must be refused.
struct Case {
    std::string before;
    Fields fields;
    ID3& id3;
    QString path;

    std::optional<std::string> append() const {
        if (!ignoring([&] { id3.AppendRomTag(path); })) return std::nullopt;
        return before + newLine(fields, before.size());
    }
    std::optional<std::string> strip() const {
        const std::optional<std::string> image = reference::imageIn(before);
        require(ignoring([&] { ID3::StripRomTag(path); }) == image.has_value(), "a tag can be stripped");
        if (image) require(before.rfind(*image, 0) == 0, "the beginning of the image is kept");
        return image ? std::optional(*image + "\r\n") : std::nullopt;
    }
    std::optional<std::string> save() const {
        int yields = 0;
        const bool isSaved = ignoring([&] { id3.SaveRomTag(path, [&] { ++yields; }); });
        if (before.find(reference::marker) == std::string::npos) {
            require(isSaved && yields == 0, "a first tag is saved");
            return before + newLine(fields, before.size());
        }
        const std::optional<std::string> image = reference::imageIn(before);
        require(isSaved == image.has_value(), "a sound tag is replaced");
        require(!isSaved || yields == 1, "events are handled once before a tag is replaced");
        if (!image) return std::nullopt;
        return *image + "\r\n" + newLine(fields, image->size() + 2);
    }
    std::optional<std::string> replace() const {
        const bool isReplaced = ignoring(
            [&] { id3.ReplaceRomTag(path, fields.title, fields.company, fields.date, fields.info); });
        if (before.size() < 2048) {
            require(isReplaced, "a short file is reported, not refused");
            return std::nullopt;
        }
        const std::string window = before.substr(before.size() - 1025, 1024);
        const std::optional<std::string> image = reference::imageIn(window);
        require(isReplaced == image.has_value(), "a tag in the window is replaced");
        if (!image) return std::nullopt;
        return *image + "\r\n" +
               reference::lineOf({bytesOf(fields.company), bytesOf(fields.title), bytesOf(fields.date),
                                  bytesOf(fields.info), reference::tagIn(window)->size});
    }
};

// Whether reading gives the fields back: separators shift them, except for those of the one known company.
bool isPlain(const Fields& fields) {
    const auto holdsNone = [](const QString& text) {
        return bytesOf(text).find(reference::separator) == std::string::npos;
    };
    const std::string company = bytesOf(fields.company);
    const bool isKnown = company == reference::shiftedCompany;
    // A company and a title together may look like the known company, too.
    const std::string beginning = company + reference::separator + bytesOf(fields.title);
    const bool looksKnown =
        beginning.compare(0, reference::shiftedCompany.size(), reference::shiftedCompany) == 0;
    return (isKnown || (holdsNone(fields.company) && !looksKnown)) && holdsNone(fields.title) &&
           holdsNone(fields.date) && holdsNone(fields.info);
}

// A saved tag is read again if it is the first tag of the window and completely inside it.
void checkRead(const Case& saved, const std::string& after) {
    const std::string window = after.substr(after.size() - 1025, 1024);
    if (!isPlain(saved.fields) || reference::cut(window, reference::marker).size() != 2) return;
    UnusedPanel panel;
    saved.id3.ReadRomTag(saved.path, panel);
    require(panel.isTagged, "a saved tag is found");
    const RomTagRecord& read = saved.id3.RomTag;
    const Fields& fields = saved.fields;
    require(bytesOf(read.Company) == orBlank(bytesOf(fields.company)), "a saved company is read");
    require(bytesOf(read.Title) == orBlank(bytesOf(fields.title)), "a saved title is read");
    require(bytesOf(read.Date) == bytesOf(fields.date), "a saved date is read");
    require(bytesOf(read.Info) == orBlank(bytesOf(fields.info)), "a saved comment is read");
}

std::optional<std::string> run(const Case& one, int operation) {
    switch (operation) {
    case 0: return one.append();
    case 1: return one.strip();
    case 2: return one.save();
    default: return one.replace();
    }
}

QString text(const QByteArray& bytes) { return CodePage1252::fromBytes(bytes); }
} // namespace

FUZZ_TARGET(tag_writes) {
    static const Scratch folder;
    static const Globals globals{QString::fromStdString(folder.path()), {}, {}, {}, {}};
    static const LanguageTables language(globals);
    Messages messages;
    ID3 id3(globals, language, messages);
    Input input(data, size);
    const int operation = input.byte() % 4;
    const std::string front(static_cast<size_t>(input.number(mostInFront)), 'r');
    const Fields fields{text(input.piece()), text(input.piece()), text(input.piece()), text(input.piece())};
    const Case one{front + input.rest().toStdString(), fields, id3,
                   QString::fromStdString(folder.path() + '/' + name)};
    folder.write(name, one.before);
    id3.NewCompany = fields.company;
    id3.NewTitle = fields.title;
    id3.NewDate = fields.date;
    id3.NewInfo = fields.info;
    const std::optional<std::string> expected = run(one, operation);
    require((messages.shown > 0) == (operation == 3 && one.before.size() < 2048), "short files are reported");
    require(folder.read(name) == expected.value_or(one.before), "the file holds what it has to");
    if (operation % 2 == 0 && expected && expected->size() >= 2048) checkRead(one, *expected);
    return 0;
}

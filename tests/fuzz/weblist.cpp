// SPDX-License-Identifier: MIT
// The web lists of any bytes: rows, entries, and what a deletion and an addition leave, by a plain reading
// line by line. Whatever the files are, an entry's address is a page or not, and entered text is one line.
// Input: the number of the entry to delete, a name and an address, the shared file, the user's own file.
#include "Fuzz.h"
#include "platform/base/CodePage1252.h"
#include "support/WebListModel.h"
#include "weblinks/WebEntry.h"
#include "weblinks/WebFields.h"
#include "weblinks/WebRows.h"
#include "weblinks/WebTexts.h"

using namespace torvane;
using namespace torvane::fuzz;

namespace {
void checkRows(const WebRows& rows, const std::vector<model::WebRow>& expected) {
    require(rows.count() == static_cast<int>(expected.size()), "there are as many rows as in the model");
    for (int row = 0; row < rows.count(); ++row) {
        const model::WebRow& other = expected[static_cast<size_t>(row)];
        require(CodePage1252::toBytes(rows.text(row, 0)).toStdString() == other.name.substr(0, 1000),
                "a row shows the name");
        require(rows.icon(row) == other.icon, "a row has the icon of its kind");
        require(rows.key(row).toStdString() == "wolas" + std::to_string(other.line),
                "a row is known by its line");
    }
}

void checkTexts(const WebTexts& texts, const std::vector<std::string>& expected) {
    require(texts.count() == static_cast<int>(expected.size()), "there are as many entries as in the model");
    for (int i = 0; i < texts.count(); ++i) {
        const QString text = texts.text(i, 0);
        require(CodePage1252::toBytes(text).toStdString() == expected[static_cast<size_t>(i)],
                "an entry has the text of the model");
        const WebEntry entry(text);
        require(!entry.isInert(), "no file gives the inert entry");
        const QByteArray address = CodePage1252::toBytes(entry.address()).toLower();
        const bool isPage =
            address.startsWith("http:") || address.startsWith("https:") || address.startsWith("file:");
        require(entry.isPage() == isPage, "a page is known by its beginning");
    }
}

void checkDeletion(const QByteArray& file, const std::string& text) {
    const QByteArray line = WebEntry(CodePage1252::fromBytes(QByteArray::fromStdString(text))).line();
    const WebFields::Remains rest = WebFields::without(file, line);
    const std::optional<std::string> expected = model::withoutEntry(file.toStdString(), text);
    require(rest.isFound == expected.has_value(), "a deletion finds the entry or fails");
    if (!rest.isFound) return;
    const QByteArray left = rest.before.toByteArray() + "\r\n" + rest.after.toByteArray() + "\r\n";
    require(left.toStdString() == *expected, "a deletion leaves what the model leaves");
}

void checkEntered(const QByteArray& entered) {
    const QString address = WebFields::storableAddress(QString::fromUtf8(entered));
    require(CodePage1252::holds(address), "an address can be stored");
    require(!address.contains(QLatin1Char('\n')) && !address.contains(QLatin1Char('\r')) &&
                !address.contains(QLatin1Char('\0')),
            "an address is one line");
    const QByteArray line = WebFields::lineOf(address, address, QStringLiteral("perso"));
    require(line == CodePage1252::toBytes(address) + ';' + CodePage1252::toBytes(address) + ";perso",
            "a line has three fields");
}
} // namespace

FUZZ_TARGET(weblist) {
    Input input(data, size);
    const auto chosen = static_cast<size_t>(input.byte());
    checkEntered(input.piece());
    const QByteArray shared = input.piece();
    const QByteArray own = input.rest();
    const auto entries = std::make_shared<WebEntries>();
    entries->append(shared);
    entries->append(own);
    const model::WebLists expected = model::webLists({shared.toStdString(), own.toStdString()});
    checkRows(WebRows(entries), expected.rows);
    checkTexts(WebTexts(entries), expected.texts);
    if (!expected.texts.empty()) checkDeletion(own, expected.texts[chosen % expected.texts.size()]);
    return 0;
}

// SPDX-License-Identifier: MIT
// Lists of known games of any bytes, in both forms: the pieces in which they come do not matter, entries are
// complete, are kept as they are, and are read again from both forms.
// Input: the sizes of the pieces, the list.
#include "Fuzz.h"
#include "tags/lists/EntryPack.h"
#include "tags/lists/ListIndex.h"
#include "tags/lists/ListReader.h"

#include <QString>
#include <vector>

using namespace torvane;
using namespace torvane::fuzz;

namespace {
struct Reading {
    std::vector<ListEntry> entries;
    std::vector<std::pair<qint64, QByteArray>> flaws;
    QByteArray fault;
};

bool isSame(const ListEntry& one, const ListEntry& other) {
    return one.title == other.title && one.rom == other.rom && one.company == other.company &&
           one.year == other.year && one.size == other.size && one.sums == other.sums;
}

bool areSame(const std::vector<ListEntry>& one, const std::vector<ListEntry>& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isSame);
}

Reading read(const QByteArray& list, qsizetype step) {
    Reading reading;
    const auto reader = ListReader::of(
        list, {[&](const ListEntry& entry) { reading.entries.push_back(entry); },
               [&](qint64 line, const QByteArray& reason) { reading.flaws.emplace_back(line, reason); }});
    for (qsizetype at = 0; at < list.size(); at += step) reader->add(list.mid(at, step));
    reader->finish();
    reading.fault = reader->fault();
    return reading;
}

void checkEntry(const ListEntry& entry) {
    require(entry.hasSum(), "an entry can be found");
    for (size_t kind = 0; kind < sumKinds; ++kind) {
        const QByteArray& sum = entry.sums[kind];
        require(sum.isEmpty() || sum.size() == sumSizes[kind], "a checksum has its length");
    }
    for (const QByteArray* text : {&entry.title, &entry.rom, &entry.company, &entry.year}) {
        require(text->isValidUtf8(), "texts are UTF-8");
        require(text->size() <= 3 * 4096, "texts are not endless");
    }
}

// A list of one entry.
QByteArray written(const ListEntry& entry, bool isXml) {
    constexpr std::array<const char*, sumKinds> names = {"crc", "md5", "sha1", "sha256"};
    const auto quoted = [&](QByteArray text) {
        if (isXml) return '"' + QString::fromUtf8(text).toHtmlEscaped().toUtf8() + '"';
        return '"' + text.replace('\\', "\\\\").replace('"', "\\\"") + '"';
    };
    const QByteArray between = isXml ? "=" : " ";
    QByteArray values;
    if (!entry.rom.isEmpty()) values += " name" + between + quoted(entry.rom);
    if (entry.size >= 0) values += " size" + between + quoted(QByteArray::number(entry.size));
    for (size_t kind = 0; kind < sumKinds; ++kind) {
        if (!entry.sums[kind].isEmpty())
            values += QByteArray(" ") + names[kind] + between + quoted(entry.sums[kind].toHex());
    }
    if (isXml)
        return "<datafile><game name=" + quoted(entry.title) + "><rom" + values + "/></game></datafile>";
    return "game ( name " + quoted(entry.title) + " rom (" + values + " ) )";
}

// Control characters and blanks change their form in one of the two.
bool isPlain(const QByteArray& text) {
    return text == text.simplified() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c != '\x7F' && (c < 0 || c >= ' '); }) &&
           !text.contains("\xEF\xBF") &&     // characters that XML does not have
           !text.startsWith("\xEF\xBB\xBF"); // Qt drops it when it makes a text of bytes
}

void checkAgain(const ListEntry& entry) {
    if (!isPlain(entry.title) || !isPlain(entry.rom)) return;
    ListEntry bare = entry;
    bare.company.clear();
    bare.year.clear();
    for (const bool isXml : {false, true}) {
        const Reading again = read(written(bare, isXml), 1 << 16);
        require(again.fault.isEmpty() && areSame(again.entries, {bare}), "an entry is read again");
    }
}

void checkIndex(const std::vector<ListEntry>& entries) {
    ListIndex index;
    for (const ListEntry& entry : entries) index.add(entry);
    index.close();
    for (const ListEntry& entry : entries) {
        require(index.mayHave(std::max<qint64>(entry.size, 0)), "the index knows the size of every entry");
        const auto kind = ListEntry::commonKind(entry.sums, entry.sums);
        require(kind && index.wanted()[static_cast<size_t>(*kind)], "the strongest checksum is wanted");
        const bool isFound =
            index.isCertain(entry.size, entry.sums[0]) || index.mayHide(entry.size, entry.sums[0]);
        require(isFound, "a member with the claim of an entry is found or unpacked");
    }
}
} // namespace

FUZZ_TARGET(game_lists) {
    Input input(data, size);
    const int step = 1 + input.byte() % 40;
    const QByteArray list = input.rest();
    const Reading whole = read(list, std::max<qsizetype>(list.size(), 1));
    const Reading pieces = read(list, step);
    require(areSame(whole.entries, pieces.entries) && whole.flaws == pieces.flaws &&
                whole.fault == pieces.fault,
            "pieces do not matter");
    EntryPack pack;
    for (const ListEntry& entry : whole.entries) {
        checkEntry(entry);
        checkAgain(entry);
        pack.add(entry);
    }
    std::vector<ListEntry> kept;
    pack.each([&](const ListEntry& entry) { kept.push_back(entry); });
    require(areSame(kept, whole.entries), "entries are kept as they are");
    checkIndex(whole.entries);
    return 0;
}

// SPDX-License-Identifier: MIT
// The tag operations on files.
#include "ID3.h"
#include "GameFormat.h"
#include "TagInFile.h"
#include "TagWindow.h"
#include "core/Texts.h"
#include "platform/base/CodePage1252.h"
#include "platform/base/File.h"
#include "platform/base/RuntimeFailure.h"
#include "platform/base/SafeFile.h"

#include <algorithm>
#include <limits>

namespace torvane {

namespace {
const QString backupFolder = QStringLiteral("\\roms\\data\\backup");

QString sized(const RomTagRecord& tag) {
    return tag.Format + QStringLiteral(" [") + QString::number(tag.SizeKB) + QStringLiteral("KB]");
}

void setFormat(RomTagRecord& tag, const GameFormat& first, const GameFormat& second) {
    const GameFormat& rule = first.isKnown() ? first : second;
    if (!rule.isKnown()) return;
    tag.Format = rule.text;
    tag.Extension = rule.extension;
}
} // namespace

bool ID3::HasRomTag(const QString& path) const {
    // Most tags are at the end: search the whole file only if there is none.
    return aboutFile(path, [&] {
        const File file(path);
        const qint64 start = std::max<qint64>(file.length() - TagWindow::size, 0);
        const QByteArray end = file.readAt(start, TagWindow::size);
        return TagLine::markerIn(end) >= 0 || TagInFile::hasMarker(file.handle());
    });
}

void ID3::ReadRomTag(const QString& path, GamePanel& panel) {
    RomTag.Extension = m_globals.names.secondPiece(path);
    qint64 length = 0;
    std::optional<TagWindow::Tag> tag;
    ignoring([&] {
        const File file(path);
        length = file.length();
        tag = TagWindow::tag(file.handle(), length);
    });
    tag ? showTagged(*tag, panel) : readUntagged(path, length, panel);
    panel.showFormat(sized(RomTag));
}

void ID3::showTagged(const TagWindow::Tag& tag, GamePanel& panel) {
    RomTag.Company = CodePage1252::fromBytes(tag.fields.company);
    RomTag.Title = CodePage1252::fromBytes(tag.fields.title);
    RomTag.Date = CodePage1252::fromBytes(tag.fields.date);
    RomTag.Info = CodePage1252::fromBytes(tag.fields.info);
    RomTag.SizeKB = tag.sizeKB;
    setFormat(RomTag, formatOfExtension(RomTag.Extension), formatOfSize(tag.sizeKB));
    panel.showTag(RomTag);
}

void ID3::readUntagged(const QString& path, qint64 length, GamePanel& panel) {
    ignoring([&] { length = File::lengthOf(path); });
    RomTag.Company.clear();
    RomTag.Date.clear();
    RomTag.Title.clear();
    RomTag.Info.clear();
    RomTag.SizeKB = static_cast<qint32>(std::min<qint64>(length / 1000, std::numeric_limits<qint32>::max()));
    RomTag.Extension = m_globals.names.secondPiece(path);
    setFormat(RomTag, formatOfSize(RomTag.SizeKB), formatOfExtension(RomTag.Extension));
    panel.showNoTag(Texts(m_language, "globals")("nodisp"));
}

void ID3::fillBlanks() {
    for (QString* value : {&NewCompany, &NewTitle, &NewInfo}) {
        if (value->isEmpty()) *value = QStringLiteral(" ");
    }
}

QByteArray ID3::newLine(qint64 size) const {
    return TagLine::build({CodePage1252::toBytes(NewCompany), CodePage1252::toBytes(NewTitle),
                           CodePage1252::toBytes(NewDate), CodePage1252::toBytes(NewInfo),
                           QByteArray::number(size)});
}

void ID3::AppendRomTag(const QString& path) {
    SafeFile::append(path, [this](qint64 size) {
        fillBlanks();
        return newLine(size);
    });
}

void ID3::StripRomTag(const QString& path) {
    aboutFile(path, [&] {
        const SafeFile::Change change(path, SafeFile::Change::Part::end);
        const auto image = TagInFile::keptLength(change.file());
        if (!image) throw TagLine::unreadable(RuntimeFailure::subscript);
        change.commitEnd(*image, {TagLine::lineEnd});
    });
}

void ID3::ReplaceRomTag(const QString& path, const QString& title, const QString& company,
                        const QString& date, const QString& info) {
    const TagLine::Fields fields{CodePage1252::toBytes(company),
                                 CodePage1252::toBytes(title),
                                 CodePage1252::toBytes(date),
                                 CodePage1252::toBytes(info),
                                 {}};
    aboutFile(path, [&] {
        const SafeFile::Change change(path);
        TagWindow::isTooShort(change.length()) ? showNoError() : replaceInWindow(change, fields);
    });
}

// Shows the last error number and its description, although no error has occurred.
void ID3::showNoError() {
    m_messages.MsgBox(QStringLiteral("%1: %2")
                          .arg(RuntimeFailure::none)
                          .arg(RuntimeFailure::describe(RuntimeFailure::none)));
}

void ID3::replaceInWindow(const SafeFile::Change& change, TagLine::Fields fields) {
    const QByteArray window = TagWindow::bytes(change.file(), change.length());
    const QByteArrayView remnant = TagLine::keptImage(window);
    fields.size = TagLine::storedSizeText(TagLine::tagPart(window));
    fillBlanks();
    // The rewrite keeps only the image bytes of the window, so keep the whole old file as a backup.
    change.keepBackup(m_globals.AppPath + backupFolder);
    change.commit({remnant, TagLine::lineEnd, TagLine::build(fields)});
}

void ID3::SaveRomTag(const QString& path, const std::function<void()>& yield) {
    // Call `yield` before opening the change, which then sees what others have done to the file.
    bool isTagged = HasRomTag(path);
    if (isTagged) yield();
    aboutFile(path, [&] {
        // Two attempts, since a tag may appear or disappear between the check and the change.
        for (int i = 0; i < 2; ++i) {
            if (isTagged ? replaceTag(path) : appendFirstTag(path)) return;
            isTagged = !isTagged;
        }
        failAsChanged();
    });
}

// False if the file has a tag by now.
bool ID3::appendFirstTag(const QString& path) {
    const auto hasNone = [](const Handle& file) { return !TagInFile::hasMarker(file); };
    qint64 marker = 0;
    const auto lineAt = [this, &marker](qint64 size) {
        marker = size;
        return newLine(size);
    };
    fillBlanks();
    return SafeFile::append(path, lineAt, hasNone,
                            [&marker](const Handle& file) { TagInFile::rememberMarker(file, marker); });
}

// False if the file has no tag any more.
bool ID3::replaceTag(const QString& path) {
    const SafeFile::Change change(path, SafeFile::Change::Part::end);
    const auto image = TagInFile::keptLength(change.file());
    if (!image) return false;
    fillBlanks();
    const qint64 marker = *image + TagLine::lineEnd.size();
    change.commitEnd(*image, {TagLine::lineEnd, newLine(marker)},
                     [marker](const Handle& file) { TagInFile::rememberMarker(file, marker); });
    return true;
}

} // namespace torvane

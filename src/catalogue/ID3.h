// SPDX-License-Identifier: MIT
// The tag in a ROM file: one line of 8-bit text after the image, found by its marker alone. Owned by the
// program. Shows tags through the interface GamePanel declared here.
#pragma once

#include "core/LanguageTables.h"
#include "platform/base/Seams.h"

#include <functional>

namespace torvane {

namespace SafeFile {
class Change;
}
namespace TagLine {
struct Fields;
}
namespace TagWindow {
struct Tag;
}

/// The last tag read. Its fields stay until the next read.
struct RomTagRecord {
    QString Company; ///< empty when the file has no tag, as are the next three
    QString Date;
    QString Title;
    QString Info;
    QString Format;    ///< console by size; the previous one where no rule applies
    qint32 SizeKB = 0; ///< in units of 1000 bytes
    QString Extension; ///< with dot where a rule applied, else the second piece of the path
};

/// Displays the result of reading a tag; implemented by the main window.
class GamePanel {
public:
    virtual ~GamePanel() = default;
    /// A tag was read: company, date, title and information go to the panel and to the edit fields.
    virtual void showTag(const RomTagRecord& tag) = 0;
    /// No tag was found: `missing` is shown as title and information, and the other fields are empty.
    virtual void showNoTag(const QString& missing) = 0;
    /// The line of format and size. Called after showTag or showNoTag.
    virtual void showFormat(const QString& format) = 0;
};

/// Failures of these operations name the file.
class ID3 {
public:
    ID3(const Globals& globals, const LanguageTables& language, MessageBoxes& messages)
        : m_globals(globals), m_language(language), m_messages(messages) {}

    RomTagRecord RomTag;
    /// The values that the next AppendRomTag or SaveRomTag writes. The caller sets them; they stay set.
    QString NewCompany, NewTitle, NewDate, NewInfo;

    /// Whether the marker is anywhere in the file. Fails only if the file can't be opened or read.
    bool HasRomTag(const QString& path) const;
    /// Fills RomTag and the panel from the last 1024 bytes of the file. Never fails: an unreadable file
    /// counts as one without a tag.
    void ReadRomTag(const QString& path, GamePanel& panel);
    /// Appends a tag line with the New values. Empty values become one blank, except the date. On failure
    /// the file is unchanged.
    void AppendRomTag(const QString& path);
    /// Reduces the file to the image before the first marker, cut to the tag's Size if it is longer, and a
    /// line end. Fails, leaving the file unchanged, if there is no tag or an invalid one.
    static void StripRomTag(const QString& path);
    /// Replaces the tag by one of the four values. Only the image bytes in the last 1024 bytes of the file
    /// survive, so the whole old file is kept in "\roms\data\backup" (one backup per name, the newest). A
    /// file shorter than 2048 bytes stays unchanged, and a message appears.
    void ReplaceRomTag(const QString& path, const QString& title, const QString& company, const QString& date,
                       const QString& info);
    /// Saves the New values. Calls `yield` first if the file has a tag. The result is that of a strip and an
    /// append, but in one step: the file is never without a tag. On failure the file is unchanged.
    void SaveRomTag(const QString& path, const std::function<void()>& yield);

private:
    void showTagged(const TagWindow::Tag& tag, GamePanel& panel);
    void readUntagged(const QString& path, qint64 length, GamePanel& panel);
    void replaceInWindow(const SafeFile::Change& change, TagLine::Fields fields);
    void showNoError();
    void fillBlanks();
    QByteArray newLine(qint64 size) const;
    bool replaceTag(const QString& path);
    bool appendFirstTag(const QString& path);

    const Globals& m_globals;
    const LanguageTables& m_language;
    MessageBoxes& m_messages;
};

} // namespace torvane

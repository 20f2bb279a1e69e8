// SPDX-License-Identifier: MIT
// The tag that lives in a ROM file: one line of 8-bit text behind the image, found by its marker alone.
// Owned by the program. Knows the game panel only through the interface that it declares here.
#pragma once

#include "core/LanguageTables.h"
#include "platform/base/Seams.h"

#include <functional>

namespace torvane {

/// The last tag read. Its fields stay until the next read.
struct RomTagRecord {
    QString Company; ///< empty when the file has no tag, as are the next three
    QString Date;
    QString Title;
    QString Info;
    QString Format;    ///< console by size; the former one where no rule applies
    qint32 SizeKB = 0; ///< in units of 1000 bytes
    QString Extension; ///< with dot where a rule applied, else the second piece of the path
};

/// What a read of a tag writes on the screen; implemented by the main window.
class GamePanel {
public:
    virtual ~GamePanel() = default;
    /// A tag was read: company, date, title and information go to the panel and to the edit fields.
    virtual void showTag(const RomTagRecord& tag) = 0;
    /// No tag was found: the same with `missing` for title and information and nothing for the rest.
    virtual void showNoTag(const QString& missing) = 0;
    /// The line of format and size, shown after either of the others.
    virtual void showFormat(const QString& format) = 0;
};

class ID3 {
public:
    ID3(const Globals& globals, const LanguageTables& language, MessageBoxes& messages)
        : m_globals(globals), m_language(language), m_messages(messages) {}

    RomTagRecord RomTag;
    /// What the next AppendRomTag writes; the caller fills them, and they stay set.
    QString NewCompany, NewTitle, NewDate, NewInfo;

    /// Whether the marker stands anywhere in the file. Fails only if the file can't be opened or read.
    bool HasRomTag(const QString& path) const;
    /// Fills RomTag and the panel from the last 1024 bytes of the file. Never fails: what can't be read
    /// has no tag.
    void ReadRomTag(const QString& path, GamePanel& panel);
    /// Appends the tag line of the New values. An empty value but the date becomes one blank. On a
    /// failure the file is as before.
    void AppendRomTag(const QString& path);
    /// Rewrites the file to the image in front of the first marker, at most as long as the tag says, and
    /// a line end. Fails with the file unchanged if there is no tag or none that can be understood.
    static void StripRomTag(const QString& path);
    /// Puts a tag of the four values in the place of the present one. Of the image only what stands in
    /// the last 1024 bytes survives; the former file is kept whole in "\roms\data\backup", the newest of its
    /// name. A file shorter than 2048 bytes is left alone, with a message.
    void ReplaceRomTag(const QString& path, const QString& title, const QString& company, const QString& date,
                       const QString& info);
    /// Saves the New values: calls `yield` if there is an old tag, and then, as if that were stripped and the
    /// new one appended, changes the file in one step, so that there is no moment without any tag. On a
    /// failure the file is as before.
    void SaveRomTag(const QString& path, const std::function<void()>& yield);

private:
    void readTagged(const QString& path, qint64& length, GamePanel& panel);
    void readUntagged(const QString& path, qint64 length, GamePanel& panel);
    void fillBlanks();
    QByteArray newLine(qint64 size) const;
    bool replaceTag(const QString& path);
    bool appendFirstTag(const QString& path);

    const Globals& m_globals;
    const LanguageTables& m_language;
    MessageBoxes& m_messages;
};

} // namespace torvane

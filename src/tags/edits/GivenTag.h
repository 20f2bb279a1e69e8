// SPDX-License-Identifier: MIT
// What a user gives for a tag, and the tag that it makes of a game's present one, by the rules of the
// windows.
#pragma once

#include "catalogue/TagWindow.h"

#include <QByteArrayList>

namespace torvane {

/// Texts in UTF-8. A field without one keeps what the game has.
struct GivenTag {
    std::optional<QByteArray> title, company, info, date;

    bool isEmpty() const { return !title && !company && !info && !date; }

    struct Result {
        TagLine::Fields fields;
        bool isNew = false; ///< it differs from the present tag
        QByteArray fault;   ///< why it can't be stored, without a line end; then the rest is of no use
    };
    /// The tag of a game whose present one is `present`; `length` is that of its file in bytes. Title,
    /// company and information are required, be they given or present. The date is that of today if none is
    /// given and another field changes. A given text that is the present one is never a fault.
    Result over(const std::optional<TagWindow::Tag>& present, qint64 length, const QByteArray& today) const;

    /// The texts of a tag, to be given to another game.
    static GivenTag of(const TagLine::Fields& fields);

    /// Why one of the texts can be stored in no tag: the field, the number of the character, counted from 1,
    /// and the reason, without a line end; empty if all can be stored.
    QByteArray fault() const;
};

} // namespace torvane

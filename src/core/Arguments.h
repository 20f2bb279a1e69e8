// SPDX-License-Identifier: MIT
// Options and operands of a command line. Own code, since file names are bytes and Qt's reader makes text of
// them.
#pragma once

#include <QByteArrayList>
#include <optional>
#include <vector>

namespace torvane {

/// An option that a command line may have.
struct OptionForm {
    enum class Kind {
        question, ///< asks for an answer: nothing after it counts
        flag,     ///< stands alone
        value,    ///< takes a value that is not empty
        text      ///< takes a value that may be empty
    };

    QByteArray name; ///< with its dashes
    Kind kind = Kind::flag;
    QByteArray valueName = {}; ///< what it needs, for the message, such as "a path"
};

struct Arguments {
    struct Option {
        QByteArray name;
        QByteArray value;
    };
    enum class Extent {
        all,         ///< options and operands may be mixed
        toTheOperand ///< only what stands before the first operand is read
    };

    std::vector<Option> options; ///< in their order
    QByteArrayList operands;     ///< as given; none is empty
    QByteArrayList rest;         ///< what was not read: all from the first operand on
    QByteArray fault; ///< why it is refused, without a line end; control characters are shown as "?"

    /// Reads options in the forms "--name value" and "--name=value", and operands. What follows "--" is an
    /// operand, and so is "-". The first question or fault ends the reading.
    static Arguments read(const QByteArrayList& arguments, const std::vector<OptionForm>& known,
                          Extent extent = Extent::all);

    bool has(const char* name) const { return value(name).has_value(); }
    /// The value of an option, the last one if it was given several times; nothing if it was not given.
    std::optional<QByteArray> value(const char* name) const;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Lets the user read all of a label's text, however long: where the label is too small for it, a field takes
// its place that can be scrolled by mouse and keys, and copied from.
#pragma once

#include "platform/forms/Label.h"

#include <QPlainTextEdit>

namespace torvane {

class WholeText : public QWidget {
    Q_OBJECT

public:
    /// The label and its shadow, and the heading, whose words are the field's name.
    WholeText(Label& label, Label& shadow, Control& heading);

private:
    bool isTooLong() const;
    void follow();

    Label& m_label;
    Label& m_shadow;
    QPlainTextEdit m_field{this};
};

} // namespace torvane

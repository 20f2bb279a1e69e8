// SPDX-License-Identifier: MIT
// Lets the user read all of a label's text: where the label is too small for it, a field takes its place that
// can be scrolled by mouse and keys, and copied from. The field shows at most the first 10,000 characters.
#pragma once

#include "platform/forms/Label.h"

#include <QPlainTextEdit>

namespace torvane {

class WholeText : public QWidget {
    Q_OBJECT

public:
    /// The label and its shadow, and the heading, whose words are the field's name.
    WholeText(Label& label, Label& shadow, Control& heading) : WholeText(label, &shadow, heading) {}
    /// The same for a label without a shadow.
    WholeText(Label& label, Control& heading) : WholeText(label, nullptr, heading) {}

private:
    WholeText(Label& label, Label* shadow, Control& heading);

    bool isTooLong() const;
    void follow();

    Label& m_label;
    Label* m_shadow; // null if there is none
    QPlainTextEdit m_field{this};
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Asks for a game of the library and writes the tag into it that is prepared in ID3's New values.
#pragma once

#include "Form2.design.h"
#include "core/Services.h"
#include "core/Texts.h"
#include "core/Window.h"

namespace torvane {

class Form2 : public Form2Design {
    Q_OBJECT

public:
    static constexpr Window id = Window::Form2;

    explicit Form2(const Services& services);

    /// Runs once after construction.
    void Load();
    /// Called when the New values have changed; the list has no meaning.
    void take(const QStringList& changed);

private:
    void Command1_Click();
    void File1_Click();
    bool isTooLong() const;

    const Services& m;
    const Texts text{m.language, "OLDB"};
};

} // namespace torvane

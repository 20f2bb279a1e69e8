// SPDX-License-Identifier: MIT
// One of Qt's buttons that can be on or off, for the controls made of them. Assistive tools toggle it without
// a click, so its changes are what counts, except those that are reported otherwise.
#pragma once

#include <QScopedValueRollback>

namespace torvane {

template <typename Button>
class QuietToggle : public Button {
public:
    /// Changes the choice in a way that is reported otherwise.
    template <typename Function>
    void quietly(Function&& change) {
        const QScopedValueRollback quiet(m_isQuiet, true);
        change();
    }
    bool isQuiet() const { return m_isQuiet; }

protected:
    // What a click does; the click itself is reported after it.
    void nextCheckState() override {
        quietly([this] { Button::nextCheckState(); });
    }

private:
    bool m_isQuiet = false;
};

} // namespace torvane

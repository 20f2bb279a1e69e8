// SPDX-License-Identifier: MIT
// Work of a window that serves events while it runs: it is done once at a time, keeps its window in
// memory, and ends early when the user wants the window closed. Owned by the window.
#pragma once

#include "Form.h"

#include <QEventLoop>

namespace torvane {

class Busy {
public:
    explicit Busy(Form& form) : m_form(form) {}

    /// Whether work is running.
    bool isOn() const { return m_isOn; }
    /// Whether the user has asked for the end of the window; stays true after the work.
    bool isAskedToClose() const { return m_isAskedToClose; }
    /// The user wants the window closed: `pause` returns at once, `goesOn` says no from now on.
    void askToClose();
    /// The user wants the window after all.
    void stayOpen() { m_isAskedToClose = false; }

    /// Runs the work and hands its failures on. Returns false, without running it, if there is work already.
    template <typename Work>
    bool run(Work work) {
        if (m_isOn) return false;
        const Form::Hold hold(m_form);
        const Mark mark(m_isOn);
        work();
        return true;
    }
    /// Serves waiting events. False if the work must end because the window is to close.
    bool goesOn();
    /// Serves events for so long, or until the window is to close.
    void pause(int milliseconds);

private:
    struct Mark {
        explicit Mark(bool& flag) : isOn(flag) { isOn = true; }
        ~Mark() { isOn = false; }
        Mark(const Mark&) = delete;
        Mark& operator=(const Mark&) = delete;
        bool& isOn;
    };

    Form& m_form;
    QEventLoop m_pause;
    bool m_isOn = false;
    bool m_isAskedToClose = false;
};

} // namespace torvane

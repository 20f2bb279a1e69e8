// SPDX-License-Identifier: MIT
// The download control of a form: fetches one address at a time while its caller waits.
#pragma once

#include "Control.h"
#include "HttpFetch.h"

namespace torvane {

class Inet : public Component {
    Q_OBJECT

public:
    using Limits = TransferLimits;

    Inet(Form& form, const char* name);

    QString kind() const override { return QStringLiteral("Inet"); }

    /// The body at an http, https or file address, byte for byte, whatever the server's status is. Waits for
    /// it in an event loop: timers and painting go on, the form stays in memory, and user input is held back
    /// until the end (see HeldInput). A file's query and fragment are ignored. Fails with deviceError if the
    /// body did not arrive whole within the limits; with the number of the file operation if a file can't be
    /// read; with invalidCall for any other address or while a call is running. `Cancel`, a window that is
    /// asked to close, the unloading of the form and the end of the program end it early: a deviceError with
    /// Reason::cancelled, which no guard reports.
    QByteArray OpenURL(const QString& address);
    /// Whether an OpenURL is waiting for its body.
    bool StillExecuting() const { return m_fetch != nullptr; }
    /// Ends a waiting OpenURL with a failure (see there); does nothing without one.
    void Cancel();

    /// From now on this button of the form, and Escape, count as a request to close it, too. Windows without
    /// a border have no other one for the mouse, and during a download no key leads to the button.
    void isClosedBy(const QWidget& button) { m_closer = &button; }

    const Limits& limits() const { return m_limits; }
    /// Other limits for the next OpenURL.
    void setLimits(const Limits& limits) { m_limits = limits; }

private:
    QByteArray contentOf(const QByteArray& address) const;
    QByteArray download(const QUrl& address);

    Form& m_form;
    const QWidget* m_closer = nullptr;
    Limits m_limits;
    HttpFetch* m_fetch = nullptr; // while an OpenURL is waiting
    bool m_isCancelled = false;
};

} // namespace torvane

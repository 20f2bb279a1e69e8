// SPDX-License-Identifier: MIT
// The real printer: Qt Print Support finds it and its paper, the spooler's own command takes the document.
#pragma once

#include "Printer.h"

#include <chrono>

namespace torvane {

class DesktopPrinter : public Printer {
public:
    /// With the time after which a spooler that has not answered a question counts as a printer that fails.
    explicit DesktopPrinter(std::chrono::milliseconds patience = std::chrono::seconds(5))
        : m_patience(patience) {}

    bool isThere() override;
    void print(const PrintedPage& page) override;

private:
    bool reachesSpooler() const;

    std::chrono::milliseconds m_patience;
};

} // namespace torvane

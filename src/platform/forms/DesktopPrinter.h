// SPDX-License-Identifier: MIT
// The real printer: Qt Print Support finds it and its paper, the spooler's own command takes the document.
#pragma once

#include "Printer.h"

namespace torvane {

class DesktopPrinter : public Printer {
public:
    bool isThere() override;
    void print(const PrintedPage& page) override;
};

} // namespace torvane

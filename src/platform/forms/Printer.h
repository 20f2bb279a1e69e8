// SPDX-License-Identifier: MIT
// What a form prints, and the interface to the printer that prints it. Forms print through Runtime::print, so
// that tests can answer for the printer.
#pragma once

#include "../base/PictureFile.h"

#include <QPoint>
#include <QString>

namespace torvane {

/// The one page of a document. Its origin is the top left corner of what the printer can print on.
struct PrintedPage {
    QString heading;     ///< one line of plain text at the origin; empty if there is none
    PictureFile picture; ///< printed in its own size: a pixel is 15 twips; null if there is none
    QPoint pictureAt;    ///< its top left corner, in twips
};

/// The system's default printer, or the first one if none is the default.
class Printer {
public:
    virtual ~Printer() = default;
    /// False if the system has no printer at all. Fails with `printer` if that can't be found out.
    virtual bool isThere() = 0;
    /// Prints a document of this one page: returns as soon as the spooler has accepted it. Fails with
    /// `printer`, about the printer's name instead of a file, and like PictureDecoder.
    virtual void print(const PrintedPage& page) = 0;
};

} // namespace torvane

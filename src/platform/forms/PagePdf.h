// SPDX-License-Identifier: MIT
// A printed page as a PDF document: what is sent to a printer, or saved where there is none.
#pragma once

#include "Printer.h"

#include <QByteArray>
#include <QPageLayout>

namespace torvane {

/// The bytes of a PDF document of this one page, in which the heading is text and the picture loses nothing.
/// A heading that is wider than the paper is printed smaller; a picture that is larger than the paper is cut
/// at its edge: the document does not hold the rest. Fails with `printer` if the layout is invalid, and like
/// PictureDecoder.
QByteArray pdfOf(const PrintedPage& page, const QPageLayout& layout);

/// The layout for a document that is only saved: A4, or Letter where inches are used, with the margins of an
/// ordinary printer.
QPageLayout layoutWithoutPrinter();

} // namespace torvane

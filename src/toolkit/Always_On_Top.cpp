// SPDX-License-Identifier: MIT
// The top-most band.
#include "Always_On_Top.h"
#include "platform/forms/Form.h"

#include <QWindow>

namespace torvane {

namespace {
int pixels(int twips) { return qRound(static_cast<double>(twips) / twipsPerPixel); }

// A window that has never had a place gets its first one when it is shown.
void rewritePlaceAndSize(Form& window) {
    if (!window.isVisible() && !window.testAttribute(Qt::WA_Moved)) return;
    window.move(pixels(window.Left()), pixels(window.Top()));
    window.resize(pixels(window.width() * twipsPerPixel), pixels(window.height() * twipsPerPixel));
}
} // namespace

void SetTopMost(Form& window, bool NotTopMost) {
    Qt::WindowFlags flags = window.windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, !NotTopMost);
    // The ordinary way of a widget would hide a shown window to change its flags. This one asks the window
    // manager at once; the next hide and show gives the window a new native handle, with the flag in it.
    window.overrideWindowFlags(flags);
    if (QWindow* handle = window.windowHandle()) handle->setFlag(Qt::WindowStaysOnTopHint, !NotTopMost);
    rewritePlaceAndSize(window);
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// Pictures of the skin by name, out of the program's resources.
#pragma once

#include <QPixmap>
#include <QString>

namespace torvane::Pictures {

/// The picture of a file name in the resources, such as "close-16.png"; on a dense screen its second
/// set at twice the pixels ("close-16@2x.png"), with the device pixel ratio set. A null pixmap for an
/// empty name and for what is not there.
QPixmap load(const QString& name, qreal devicePixelRatio = 1.0);

} // namespace torvane::Pictures

// SPDX-License-Identifier: MIT
// The fonts of the fixed designs and their substitutes. The designs name fonts that a Linux desktop rarely
// has: each is replaced by its metric neighbour from Debian's packages, at a pixel size (96 dpi), so that
// every caption takes the room that the design gives it.
#pragma once

#include <QFont>

namespace torvane {

/// A font as a design names it.
struct FontSpec {
    enum Face { Verdana, MSSansSerif, Tahoma, TrebuchetMS, CourierNew };
    Face face = MSSansSerif;
    double points = 8.25;
    bool bold = false;
    bool underline = false;
    bool italic = false;

    bool operator==(const FontSpec&) const = default;
};

namespace Fonts {

constexpr FontSpec V8{FontSpec::Verdana, 8.25, false};
constexpr FontSpec V8b{FontSpec::Verdana, 8.25, true};
constexpr FontSpec V9b{FontSpec::Verdana, 9.75, true};
constexpr FontSpec M8{FontSpec::MSSansSerif, 8.25, false};
constexpr FontSpec M8b{FontSpec::MSSansSerif, 8.25, true};
constexpr FontSpec T9u{FontSpec::Tahoma, 9.75, false, true};

/// The font to draw with: the substitute's family, a whole number of pixels (points x 96 / 72).
QFont of(const FontSpec& named);
/// The family of a face's substitute and the Debian package that holds it.
struct StandIn {
    const char* designFace;
    const char* family;
    const char* debianPackage;
};
StandIn standIn(FontSpec::Face face);

} // namespace Fonts
} // namespace torvane

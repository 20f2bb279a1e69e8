// SPDX-License-Identifier: MIT
// Reading numbers from text.
#include "NumberText.h"
#include "RuntimeFailure.h"

#include <cmath>
#include <limits>

namespace torvane::NumberText {

double toReal(const QByteArray& text) {
    bool isNumber = false;
    const double value = text.trimmed().toDouble(&isNumber);
    // Qt also accepts "inf" and "nan", which no size and no setting can be.
    if (!isNumber || !std::isfinite(value)) throw RuntimeFailure(RuntimeFailure::typeMismatch);
    return value;
}

namespace {
template <typename Number>
Number roundedTo(const QByteArray& text) {
    using Limits = std::numeric_limits<Number>;
    const double rounded = std::nearbyint(toReal(text));
    if (rounded < Limits::min() || rounded > Limits::max()) throw RuntimeFailure(RuntimeFailure::overflow);
    return static_cast<Number>(rounded);
}
} // namespace

int toInteger(const QByteArray& text) { return roundedTo<int>(text); }

int toShort(const QByteArray& text) { return roundedTo<qint16>(text); }

} // namespace torvane::NumberText

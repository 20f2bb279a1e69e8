// SPDX-License-Identifier: MIT
// Compares the look of one control with what the catalogue notes about it; a difference fails the test
// that runs. Which control a row stands for is the caller's affair.
#pragma once

#include "support/CatalogueTable.h"

namespace torvane {

/// Takes every note off that it has compared. What stays is something that nobody has looked at.
void compareLook(const QObject& part, CatalogueNotes& notes);

/// Compares a label with what the shadow of another label of its window has to be.
void compareShadow(const QObject& shadow, const QString& sourceName);

} // namespace torvane

// SPDX-License-Identifier: MIT
// Compares the look of one control with its notes in the catalogue; a difference fails the running test. The
// caller chooses the control for a row.
#pragma once

#include "support/CatalogueTable.h"

namespace torvane {

/// Removes each note after comparing it. Notes that remain were not compared.
void compareLook(const QObject& part, CatalogueNotes& notes);

/// Checks that a label is the shadow of another label (by name) in its window.
void compareShadow(const QObject& shadow, const QString& sourceName);

} // namespace torvane

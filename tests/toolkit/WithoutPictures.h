// SPDX-License-Identifier: MIT
// Takes the program's pictures away again, for the tests of controls that have to do without them.
#pragma once

#include <QDir>

// Q_CLEANUP_RESOURCE declares a function and has to stand outside of every namespace.
inline void removePictures() { Q_CLEANUP_RESOURCE(torvane_art); }

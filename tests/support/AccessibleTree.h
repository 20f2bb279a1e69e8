// SPDX-License-Identifier: MIT
// Widgets as an assistive tool sees them, and the names that it must never hear.
#pragma once

#include "CatalogueTable.h"

#include <QAccessible>
#include <QSet>
#include <QtTest>

namespace torvane {

inline QAccessibleInterface& accessible(QObject& object) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&object);
    if (found == nullptr) qFatal("no interface for %s", qPrintable(object.objectName()));
    return *found;
}
inline QString nameOf(QObject& object) { return accessible(object).text(QAccessible::Name); }

/// An interface and all below it, in the order of a walk.
inline QList<QAccessibleInterface*> accessiblesFrom(QAccessibleInterface& root) {
    QList<QAccessibleInterface*> found{&root};
    for (int i = 0; i < root.childCount(); ++i) found += accessiblesFrom(*root.child(i));
    return found;
}
/// The names of all that lies on a widget.
inline QStringList namesOn(QObject& root) {
    QStringList names;
    for (const QAccessibleInterface* part : accessiblesFrom(accessible(root)).sliced(1)) {
        names.append(part->text(QAccessible::Name));
    }
    return names;
}

/// Asks for a press, as a tool does, and waits until it has happened. Gives whether one was offered.
inline bool press(QObject& object) {
    QAccessibleActionInterface* actions = accessible(object).actionInterface();
    const bool isOffered = actions->actionNames().contains(QAccessibleActionInterface::pressAction());
    actions->doAction(QAccessibleActionInterface::pressAction());
    for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
    return isOffered;
}

/// What the catalogue calls a window and its controls: no words for a person, but for one heading of the
/// gallery, which says "Format" in two languages.
inline QSet<QString> catalogueNames(const QString& window) {
    QSet<QString> names{window};
    for (const auto& row : tableRows(QStringLiteral(TORVANE_TESTS_DIR "/catalogue/controls.tsv"))) {
        if (row[QStringLiteral("window")] == window) names << row[QStringLiteral("control")];
    }
    if (window == QStringLiteral("Compartir")) names.remove(QStringLiteral("Format"));
    return names;
}

} // namespace torvane

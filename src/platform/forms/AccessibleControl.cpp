// SPDX-License-Identifier: MIT
// Names, states and presses of controls.
#include "AccessibleControl.h"

#include <QApplication>
#include <QTimer>
#include <algorithm>

namespace torvane {

namespace {
bool isCovering(const QObject* sibling, const QWidget& widget) {
    const auto* above = qobject_cast<const QWidget*>(sibling);
    return above != nullptr && !above->isHidden() && above->testAttribute(Qt::WA_OpaquePaintEvent) &&
           above->geometry().contains(widget.geometry());
}

// Whether something above hides all of a widget, or of a panel that it lies in: panels are put on top of one
// another without the lower one being hidden.
bool isCovered(const QWidget& widget) {
    if (widget.isWindow()) return false;
    const QObjectList& siblings = widget.parentWidget()->children(); // the lowest first
    const auto above = std::find(siblings.begin(), siblings.end(), &widget);
    return std::any_of(above, siblings.end(),
                       [&](QObject* o) { return o != &widget && isCovering(o, widget); }) ||
           isCovered(*widget.parentWidget());
}

// Whether a click of the mouse would reach the control now.
bool takesClicks(const Control& control) {
    const QWidget* modal = QApplication::activeModalWidget();
    return control.isPressable() && control.isEnabled() && control.isVisible() && !isCovered(control) &&
           (modal == nullptr || modal == control.window());
}
} // namespace

// Given words go first, then what the control shows, then what its tip says. Never the design's own name for
// it.
QString AccessibleControl::name() const {
    for (const QString& words : {m_control.accessibleName(), m_control.accessibleText()}) {
        const QString spoken = words.trimmed();
        if (!spoken.isEmpty()) return spoken;
    }
    return m_control.toolTip();
}

QString AccessibleControl::text(QAccessible::Text which) const {
    if (which == QAccessible::Name) return name();
    const QString words = AccessibleParts::text(which);
    // A tip that is the name already is not said twice.
    return which == QAccessible::Description && words == name() ? QString() : words;
}

QAccessible::State AccessibleControl::state() const {
    QAccessible::State state = AccessibleParts::state();
    state.invisible = state.invisible || isCovered(m_control);
    state.offscreen = !m_control.liesInContainer();
    m_control.addAccessibleState(state);
    return state;
}

QStringList AccessibleControl::actionNames() const {
    QStringList names = AccessibleParts::actionNames();
    if (m_control.isPressable() && m_control.isEnabled()) names.prepend(pressAction());
    return names;
}

void AccessibleControl::doAction(const QString& name) {
    if (name != pressAction()) return AccessibleParts::doAction(name);
    QTimer::singleShot(0, &m_control, [control = &m_control] {
        if (takesClicks(*control)) control->performClick();
    });
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The common part of all controls.
#include "Control.h"
#include "AccessibleParts.h"
#include "Form.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace torvane {

Control::Control(QWidget& parent, const char* name, const DesignRect& rect, bool takesTabPlace)
    : QWidget(&parent), m_designRect(rect) {
    installAccessibility();
    setObjectName(QString::fromUtf8(name));
    setGeometry(rect.rounded());
    if (takesTabPlace) m_tabIndex = form().takeTabPlace();
}

void Control::setFontSpec(const FontSpec& named) {
    m_fontSpec = named;
    setFont(Fonts::of(named));
}

void Control::isCalled(const Wording& name) { form().wordings().addName(*this, name); }

void Control::names(QWidget& other) {
    m_named.append(&other);
    setSpokenName(other, accessibleText());
}

void Control::wordsChanged() {
    for (const QPointer<QWidget>& other : m_named) {
        if (other != nullptr) setSpokenName(*other, accessibleText());
    }
    if (!accessibleName().isEmpty()) return;
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

bool Control::liesInContainer() const { return parentWidget()->rect().intersects(geometry()); }

bool Control::isExposed() const { return !m_concealed && (isPressable() || liesInContainer()); }

void Control::performClick() {
    const QPointF place = rect().center();
    const QPointF onScreen = mapToGlobal(place);
    const QPointer<Control> stillThere(this);
    QMouseEvent down(QEvent::MouseButtonPress, place, onScreen, Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(this, &down);
    if (stillThere == nullptr) return;
    QMouseEvent up(QEvent::MouseButtonRelease, place, onScreen, Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(this, &up);
}

Form& Control::form() const { return *static_cast<Form*>(window()); }

Component::Component(Form& form, const char* name) : QObject(&form) {
    setObjectName(QString::fromUtf8(name));
}

} // namespace torvane

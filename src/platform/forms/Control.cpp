// SPDX-License-Identifier: MIT
// The common part of all controls, and their interface for assistive tools.
#include "Control.h"
#include "Form.h"

#include <QAccessibleWidget>

namespace torvane {

namespace {
// The role and the text of a control that paints itself.
class ControlAccessible : public QAccessibleWidget {
public:
    explicit ControlAccessible(Control* control)
        : QAccessibleWidget(control, control->accessibleRole()), m_control(control) {}
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? m_control->accessibleText() : QAccessibleWidget::text(which);
    }

private:
    Control* m_control;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* control = qobject_cast<Control*>(object);
    return control ? new ControlAccessible(control) : nullptr;
}

void installAccessibleFactory() {
    static const bool installed = [] {
        QAccessible::installFactory(makeAccessible);
        return true;
    }();
    Q_UNUSED(installed);
}
} // namespace

Control::Control(QWidget& parent, const char* name, const DesignRect& rect, bool takesTabPlace)
    : QWidget(&parent), m_designRect(rect) {
    installAccessibleFactory();
    setObjectName(QString::fromUtf8(name));
    setGeometry(rect.rounded());
    if (takesTabPlace) m_tabIndex = form().takeTabPlace();
}

void Control::setFontSpec(const FontSpec& named) {
    m_fontSpec = named;
    setFont(Fonts::of(named));
}

Form& Control::form() const { return *static_cast<Form*>(window()); }

Component::Component(Form& form, const char* name) : QObject(&form) {
    setObjectName(QString::fromUtf8(name));
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// What all controls of the fixed designs share: a name, a place in the design and in the tab order, and
// a face for assistive tools. The form owns its controls by value; this class owns nothing.
#pragma once

#include "Fonts.h"

#include <QAccessible>
#include <QWidget>

namespace torvane {

class Form;

/// A place in a design: pixels from the container's top left corner. A fraction comes from twips that
/// are no whole pixel; what is drawn is rounded.
struct DesignRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    QRect rounded() const { return {qRound(left), qRound(top), qRound(width), qRound(height)}; }
    bool operator==(const DesignRect&) const = default;
};

class Control : public QWidget {
    Q_OBJECT

public:
    /// The kind as the window catalogue calls it, such as "label".
    virtual QString kind() const = 0;
    /// The place that the design gives; moves of the running program do not change it.
    const DesignRect& designRect() const { return m_designRect; }
    /// The place in the form's tab order, counted from 0; -1 for a control without one.
    int tabIndex() const { return m_tabIndex; }
    /// The font that the design names, and the one to draw with from now on.
    const FontSpec& fontSpec() const { return m_fontSpec; }
    void setFontSpec(const FontSpec& named);
    /// What an assistive tool says of the control.
    virtual QAccessible::Role accessibleRole() const { return QAccessible::Client; }
    virtual QString accessibleText() const { return objectName(); }

protected:
    /// The parent is a form or a panel of one. A control with `takesTabPlace` gets the next place.
    Control(QWidget& parent, const char* name, const DesignRect& rect, bool takesTabPlace = true);
    /// The form that the control lies on, directly or in a panel.
    Form& form() const;

private:
    DesignRect m_designRect;
    FontSpec m_fontSpec;
    int m_tabIndex = -1;
};

/// A part of a form without a face: a timer, a dialog, an icon in the tray.
class Component : public QObject {
    Q_OBJECT

public:
    virtual QString kind() const = 0;

protected:
    Component(Form& form, const char* name);
};

} // namespace torvane

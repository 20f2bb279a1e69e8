// SPDX-License-Identifier: MIT
// What all controls of the fixed designs share: a name, a place in the design and in the tab order, and
// their face for assistive tools. The form owns its controls by value; this class owns nothing.
#pragma once

#include "Fonts.h"
#include "Wordings.h"

#include <QAccessible>
#include <QPointer>
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

    // What assistive tools see of the control; see AccessibleControl.
    virtual QAccessible::Role accessibleRole() const { return QAccessible::Client; }
    /// The words that it shows, such as its caption. They are its name, too, unless it is given another one.
    virtual QString accessibleText() const { return {}; }
    /// Adds what only this kind of control knows of its state.
    virtual void addAccessibleState(QAccessible::State&) const {}
    /// Whether it is there at all for these tools: by default if it lies in sight of its container or can be
    /// clicked.
    virtual bool isExposed() const;
    /// Whether a click on it does something, if it is enabled.
    virtual bool isPressable() const { return false; }
    /// Does what a click in its middle does.
    virtual void performClick();
    /// Gives it a name, for want of words of its own.
    void isCalled(const Wording& name);
    /// Its words are the name of another widget from now on, as a label's are that of the field beside it.
    void names(QWidget& other);
    /// Keeps from assistive tools what only looks nice, or is a store that no user sees.
    void conceal() { m_concealed = true; }
    /// Whether any part of it lies inside of the form or panel that holds it.
    bool liesInContainer() const;

protected:
    /// The parent is a form or a panel of one. A control with `takesTabPlace` gets the next place.
    Control(QWidget& parent, const char* name, const DesignRect& rect, bool takesTabPlace = true);
    /// To be called when accessibleText() is another one. Assistive tools hear of it if it is the name.
    void wordsChanged();
    /// The form that the control lies on, directly or in a panel.
    Form& form() const;

private:
    DesignRect m_designRect;
    FontSpec m_fontSpec;
    int m_tabIndex = -1;
    QList<QPointer<QWidget>> m_named; // what this control's words are the name of
    bool m_concealed = false;
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

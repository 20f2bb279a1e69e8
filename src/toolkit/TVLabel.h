// SPDX-License-Identifier: MIT
// A caption with its drop shadow in one control. Behaves as if it were made of three labels: the caption,
// its shadow, and an empty one over both that takes the mouse.
#pragma once

#include "PropertyBag.h"
#include "platform/forms/Colours.h"
#include "platform/forms/Control.h"

namespace torvane {

class TVLabel : public Control {
    Q_OBJECT

public:
    struct Look {
        const char* caption = "Label1";
        FontSpec fontNote = Fonts::M8; ///< kept, but never drawn with
    };

    TVLabel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("skin label"); }
    QAccessible::Role accessibleRole() const override;
    QString accessibleText() const override { return m_caption; }
    /// As soon as something is connected to its click.
    bool isPressable() const override;
    /// Not as long as it says nothing and does nothing.
    bool isExposed() const override;

    // Kept and saved, without any effect on the screen.
    bool Enabled() const { return m_enabled; }
    void setEnabledNote(bool enabled) { m_enabled = enabled; }
    const FontSpec& Font() const { return m_fontNote; }
    void setFontNote(const FontSpec& font) { m_fontNote = font; }
    int Appearance() const { return m_appearance; }
    void setAppearance(int appearance) { m_appearance = appearance; }

    /// The text of caption and shadow.
    const QString& Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    OleColour BackColor() const { return m_backColor; }
    void setBackColor(OleColour colour);
    /// 0 lets the form show through; any other value fills the back colour.
    int BackStyle() const { return m_backStyle; }
    void setBackStyle(int style);
    /// 1 frames the control; 0 does not.
    int BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(int style);
    /// The caption's colour; the shadow stays black.
    OleColour ForeColor() const { return m_foreColor; }
    void setForeColor(OleColour colour);
    void Refresh() { repaint(); }

    /// The saved state; a value equal to its default is not written.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

signals:
    void Click();
    /// Button: 1 left, 2 right, 4 middle, added up. Shift: 1 shift, 2 control, 4 alt. Place in pixels from
    /// the corner of the mouse label.
    void MouseMove(int Button, int Shift, float X, float Y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QRect mousePad() const;
    void hover(QPoint place);

    QString m_caption;
    FontSpec m_fontNote;
    OleColour m_backColor;
    OleColour m_foreColor;
    int m_backStyle = 1;
    int m_borderStyle = 0;
    int m_appearance = 0;
    bool m_enabled = false;
    bool m_pressedOnPad = false;
};

} // namespace torvane

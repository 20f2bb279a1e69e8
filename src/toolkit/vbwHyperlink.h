// SPDX-License-Identifier: MIT
// A label that looks like a link: it lights up under the mouse and hands its address to the desktop. The
// program keeps one, out of sight, as its only door to the browser.
#pragma once

#include "PropertyBag.h"
#include "platform/forms/Colours.h"
#include "platform/forms/Control.h"

namespace torvane {

class vbwHyperlink : public Control {
    Q_OBJECT

public:
    struct Look {
        FontSpec font = Fonts::T9u;
        OleColour fore = Colours::black;
    };

    vbwHyperlink(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);

    QString kind() const override { return QStringLiteral("link"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Link; }
    QString accessibleText() const override { return m_caption; }
    bool isPressable() const override { return true; }
    void performClick() override;

    void Refresh() { repaint(); }
    /// Follows the link as a click does. Nothing is checked or shown; see the events for the outcome.
    void UserClick();

    OleColour HoverColour() const { return m_hoverColour; }
    void setHoverColour(OleColour colour) { m_hoverColour = colour; }
    bool HoverUnderline() const { return m_hoverUnderline; }
    void setHoverUnderline(bool underline) { m_hoverUnderline = underline; }
    const QString& Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    OleColour BackColor() const { return m_backColor; }
    void setBackColor(OleColour colour);
    /// Whether the control is as large as its caption.
    bool AutoSize() const { return m_autoSize; }
    void setAutoSize(bool autoSize);
    /// What the desktop's opener gets, unchanged, with or without a scheme.
    const QString& URL() const { return m_url; }
    void setURL(const QString& url) { m_url = url; }
    const FontSpec& Font() const { return fontSpec(); }
    OleColour ForeColor() const { return m_foreColor; }
    void setForeColor(OleColour colour);
    /// Whether the link itself is enabled, whatever its window is; set by QWidget::setEnabled.
    bool Enabled() const { return isEnabledTo(parentWidget()); }

    /// The saved state; a value equal to its default is not written.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

signals:
    /// Event 1, before the jump: a handler that sets Cancel stops it.
    void BeforeJump(bool& Cancel);
    /// Event 2, after the jump: whether nothing was found that opens the address.
    void AfterJump(bool NotFound);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void lightUp();
    void restoreLook();
    void takeFont(const FontSpec& font);
    void setUnderline(bool underline);
    void fitToCaption();

    QString m_caption;
    QString m_url;
    OleColour m_hoverColour = 0x0000FF;
    OleColour m_foreColor = Colours::black;
    OleColour m_backColor = Colours::buttonFace;
    bool m_hoverUnderline = true;
    bool m_autoSize = true;
    bool m_tracking = false;       // the mouse is over the link and its look changed
    bool m_savedUnderline = false; // the look to go back to; nothing is saved before the first hover
    OleColour m_savedForeColor = Colours::black;
    bool m_resizing = false;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// A caption at a fixed place, painted as plain text: no markup and no access keys, since titles come out
// of files. Most captions are drawn twice, the second time in black 2 pixels further right and down.
#pragma once

#include "Colours.h"
#include "Control.h"

namespace torvane {

class Label : public Control {
    Q_OBJECT

public:
    struct Look {
        const char* caption = "";
        FontSpec font = Fonts::M8;
        OleColour fore = Colours::black;
        Qt::Alignment align = Qt::AlignLeft;
        bool transparent = true;
        OleColour back = Colours::buttonFace;
    };

    Label(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);
    /// The shadow of another label of the same parent: same font, black, under it. It follows the caption.
    Label(QWidget& parent, const char* name, const DesignRect& rect, Label& source);

    QString kind() const override { return QStringLiteral("label"); }
    QAccessible::Role accessibleRole() const override;
    QString accessibleText() const override { return m_caption; }
    /// Neither a shadow nor a label that says nothing and does nothing.
    bool isExposed() const override;
    /// As soon as something is connected to its click.
    bool isPressable() const override;

    const QString& Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    OleColour ForeColor() const { return m_fore; }
    void setForeColor(OleColour colour);
    Qt::Alignment alignment() const { return m_align; }
    bool isTransparent() const { return m_transparent; }
    OleColour backColour() const { return m_back; }
    bool isShadow() const { return m_isShadow; }

    /// Where the text is drawn, in pixels: it begins further to the right if a line of it begins with a
    /// letter, such as "J", that reaches to the left of its place.
    QRect textPlace() const;
    /// Makes the label wider or narrower than its design; pixels.
    void setWidth(int pixels) { resize(pixels, height()); }
    /// Lays the lines of the text this far apart, from top to top, instead of as the font has it; pixels. For
    /// texts whose lines have to meet something that is painted beside them.
    void setLinePitch(int pixels);
    /// From now on a change of this label's caption is copied to the other one.
    void setTwin(Label& twin);

signals:
    void Change();
    void Click();
    void MouseDown(QPoint screenPosition);
    void MouseMove(QPoint screenPosition);
    void MouseUp(QPoint screenPosition);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int overhang() const;
    void drawAtPitch(QPainter& painter) const;

    QString m_caption;
    OleColour m_fore;
    OleColour m_back;
    Qt::Alignment m_align;
    bool m_transparent;
    bool m_isShadow = false;
    int m_linePitch = 0; ///< pixels; 0 for the font's own
    int m_wrapWidth;     ///< pixels at which lines break: a shadow breaks them where its source does
};

} // namespace torvane

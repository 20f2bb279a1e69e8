// SPDX-License-Identifier: MIT
// The one push button of the program: properties, mouse, keyboard, focus. ButtonSurface decides when it
// paints.
#pragma once

#include "ButtonLook.h"
#include "ButtonSurface.h"

#include <QTimer>

namespace torvane {

class chameleonButton : public ButtonSurface {
    Q_OBJECT

public:
    using Look = ButtonLook;
    /// A button of a design: custom colours, picture left of the caption, arrow pointer.
    chameleonButton(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);
    /// A fresh button without a design: the name as its caption, the system's colours.
    chameleonButton(QWidget& parent, const char* name, const DesignRect& rect = {0, 0, 320, 240});

    QString kind() const override { return QStringLiteral("button"); }
    QAccessible::Role accessibleRole() const override { return QAccessible::Button; }
    /// The caption without its access mark.
    QString accessibleText() const override;
    bool isPressable() const override { return true; }

    // Properties: a change of one that the look depends on paints the button anew.
    OleColour BackColor() const { return m_p.backColor; }
    void setBackColor(OleColour colour);
    OleColour BackOver() const { return m_p.backOver; }
    void setBackOver(OleColour colour);
    OleColour ForeColor() const { return m_p.foreColor; }
    void setForeColor(OleColour colour);
    OleColour ForeOver() const { return m_p.foreOver; }
    void setForeOver(OleColour colour);
    OleColour MaskColor() const { return m_p.maskColor; }
    void setMaskColor(OleColour colour);
    int ButtonType() const { return m_p.buttonType; }
    void setButtonType(int type);
    const QString& Caption() const { return m_p.caption; }
    void setCaption(const QString& caption);
    using ButtonSurface::Enabled; // set by QWidget::setEnabled
    const FontSpec& Font() const { return fontSpec(); }
    bool FontBold() const { return fontSpec().bold; }
    void setFontBold(bool bold);
    bool FontItalic() const { return fontSpec().italic; }
    void setFontItalic(bool italic);
    bool FontUnderline() const { return fontSpec().underline; }
    void setFontUnderline(bool underline);
    int FontSize() const { return qRound(fontSpec().points); } ///< in whole points
    void setFontSize(int points);
    /// One of the faces that the designs name; an unknown one leaves the font as it is.
    QString FontName() const;
    void setFontName(const QString& name);
    int ColorScheme() const { return m_p.colorScheme; }
    void setColorScheme(int scheme);
    bool ShowFocusRect() const { return m_p.showFocusRect; }
    void setShowFocusRect(bool show);
    int MousePointer() const { return m_p.mousePointer; }
    void setMousePointer(int pointer);
    const QPixmap& MouseIcon() const { return m_p.mouseIcon; }
    void setMouseIcon(const QPixmap& icon);
    bool HandPointer() const { return m_p.handPointer; }
    void setHandPointer(bool hand);
    WId hWnd() const { return winId(); }
    bool SoftBevel() const { return m_p.softBevel; }
    void setSoftBevel(bool soft);
    const QPixmap& PictureNormal() const { return m_p.pictureNormal; }
    void setPictureNormal(const QPixmap& picture);
    const QPixmap& PictureOver() const { return m_p.pictureOver; }
    void setPictureOver(const QPixmap& picture);
    int PicturePosition() const { return m_p.picturePosition; }
    void setPicturePosition(int position);
    bool UseMaskColor() const { return m_p.useMaskColor; }
    void setUseMaskColor(bool use);
    bool UseGreyscale() const { return m_p.useGreyscale; }
    void setUseGreyscale(bool use);
    int SpecialEffect() const { return m_p.specialEffect; }
    void setSpecialEffect(int effect);
    bool CheckBoxBehaviour() const { return m_p.checkBoxBehaviour; }
    void setCheckBoxBehaviour(bool behaviour);
    bool Value() const { return m_p.value; }
    void setValue(bool value);
    QString Version() const { return QStringLiteral("2.0.6"); }

    /// From now on changes are not painted, until Refresh paints them all at once.
    void DisableRefresh();
    void Refresh();
    /// The saved state: all keys are written; what a bag lacks is read as its default.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    /// The letter that presses the button together with Alt, in lower case; null without one.
    QChar accessKey() const { return m_accessKey; }
    /// Whether the container marks this button as its default one.
    void setDisplayAsDefault(bool isDefault);
signals:
    void Click();
    /// Button: 1 left, 2 right, 4 middle. Shift: 1 shift, 2 control, 4 alt. Place in pixels.
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    void KeyPress(int KeyAscii);
    void KeyDown(int KeyCode, int Shift);
    void KeyUp(int KeyCode, int Shift);
    void MouseOver();
    void MouseOut();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    template <typename Field>
    void change(Field& field, const Field& value);
    void construct();
    void applyProperties();
    void loadPictures();
    void applyPointer();
    void applyAccessKey();
    bool cursorIsOver() const;
    void press(int button, int shift, QPointF place);
    void pointerMoved(const QSinglePointEvent& event);
    void lookForPointer();
    void containerClick();
    void toggleIfCheckBox();
    QTimer m_overTimer{this};
    const char* m_designPicture = nullptr; // its name; null once another picture has been set
    bool m_lightsUp = false;               // the design has a second picture for the pointer
    qreal m_pictureRatio = 0.0;            // that the design's pictures were loaded for
    QChar m_accessKey;
    int m_shortcutId = 0;
    bool m_iconIsHand = false; // the mouse icon came with HandPointer
    int m_lastButton = 0;
    int m_lastKeyCode = 0;
    bool m_spaceIsDown = false; // went down on this button and has not come up since
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// Painting, mouse and saved state of the skinned label.
#include "TVLabel.h"
#include "InputWords.h"

#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>

namespace torvane {

namespace {
constexpr OleColour restingBack = 0x4A3933;
constexpr OleColour hoverBack = 0xB09A93;
constexpr QPoint captionPlace(2, 2);
constexpr QPoint shadowPlace(4, 4);
constexpr int shadowHeight = 13;
constexpr int padShift = -2; // the mouse label begins outside and so leaves the right edge free
const auto newLabelCaption = QStringLiteral("Label1");
} // namespace

TVLabel::TVLabel(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_caption(QString::fromUtf8(look.caption)), m_fontNote(look.fontNote),
      m_backColor(restingBack), m_foreColor(Colours::white) {
    setFontSpec(Fonts::V8b);
    setMouseTracking(true);
}

bool TVLabel::isPressable() const { return isSignalConnected(QMetaMethod::fromSignal(&TVLabel::Click)); }

bool TVLabel::isExposed() const { return (isPressable() || !m_caption.isEmpty()) && Control::isExposed(); }

QAccessible::Role TVLabel::accessibleRole() const {
    return isPressable() ? QAccessible::Button : QAccessible::StaticText;
}

void TVLabel::setCaption(const QString& caption) {
    m_caption = caption;
    update();
    wordsChanged();
}

void TVLabel::setBackColor(OleColour colour) {
    if (colour == m_backColor) return;
    m_backColor = colour;
    update();
}

void TVLabel::setBackStyle(int style) {
    m_backStyle = style;
    update();
}

void TVLabel::setBorderStyle(int style) {
    m_borderStyle = style;
    update();
}

void TVLabel::setForeColor(OleColour colour) {
    m_foreColor = colour;
    update();
}

void TVLabel::ReadProperties(const PropertyBag& bag) {
    m_enabled = bag.ReadProperty(QStringLiteral("Enabled"), false);
    m_fontNote = bag.ReadProperty(QStringLiteral("Font"), Fonts::M8);
    m_appearance = bag.ReadProperty(QStringLiteral("Appearance"), 0);
    m_caption = bag.ReadProperty(QStringLiteral("Caption"), newLabelCaption);
    m_backColor = bag.ReadProperty(QStringLiteral("BackColor"), restingBack);
    m_backStyle = bag.ReadProperty(QStringLiteral("BackStyle"), 1);
    m_borderStyle = bag.ReadProperty(QStringLiteral("BorderStyle"), 0);
    m_foreColor = bag.ReadProperty(QStringLiteral("ForeColor"), Colours::white);
    update();
}

void TVLabel::WriteProperties(PropertyBag& bag) const {
    const auto font = [](const FontSpec& named) { return QVariant::fromValue(named); };
    bag.WriteProperty(QStringLiteral("Enabled"), m_enabled, false);
    bag.WriteProperty(QStringLiteral("Font"), font(m_fontNote), font(Fonts::M8));
    bag.WriteProperty(QStringLiteral("Appearance"), m_appearance, 0);
    bag.WriteProperty(QStringLiteral("Caption"), m_caption, newLabelCaption);
    bag.WriteProperty(QStringLiteral("BackColor"), m_backColor, restingBack);
    bag.WriteProperty(QStringLiteral("BackStyle"), m_backStyle, 1);
    bag.WriteProperty(QStringLiteral("BorderStyle"), m_borderStyle, 0);
    bag.WriteProperty(QStringLiteral("ForeColor"), m_foreColor, Colours::white);
}

void TVLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_backStyle != 0) painter.fillRect(rect(), Colours::toQColor(m_backColor));
    const auto paintLabel = [&](const QRect& label, OleColour colour) {
        painter.setClipRect(label);
        painter.setPen(Colours::toQColor(colour));
        painter.drawText(label, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, m_caption);
    };
    paintLabel(QRect(shadowPlace, QSize(width(), shadowHeight)), Colours::black);
    paintLabel(QRect(captionPlace, size()), m_foreColor);
    if (m_borderStyle == 0) return;
    painter.setClipping(false);
    painter.setPen(Colours::toQColor(Colours::black));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

QRect TVLabel::mousePad() const { return {padShift, 0, width(), height()}; }

void TVLabel::hover(QPoint place) { setBackColor(rect().contains(place) ? hoverBack : restingBack); }

void TVLabel::mousePressEvent(QMouseEvent* event) {
    m_pressedOnPad = mousePad().contains(event->position().toPoint());
}

void TVLabel::mouseMoveEvent(QMouseEvent* event) {
    // While a button is held the moves go on to where it was pressed.
    const QPoint place = event->position().toPoint();
    const bool isOnPad = event->buttons() == Qt::NoButton ? mousePad().contains(place) : m_pressedOnPad;
    if (!isOnPad) return hover(place);
    emit MouseMove(InputWords::buttons(event->buttons()), InputWords::shift(event->modifiers()),
                   static_cast<float>(place.x() - padShift), static_cast<float>(place.y()));
}

void TVLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (m_pressedOnPad && mousePad().contains(event->position().toPoint())) emit Click();
}

} // namespace torvane

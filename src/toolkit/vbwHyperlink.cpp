// SPDX-License-Identifier: MIT
// Hover, jump, size and saved state of the link label.
#include "vbwHyperlink.h"
#include "InputWords.h"
#include "platform/forms/Form.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>

namespace torvane {

namespace {
const auto newLinkCaption = QStringLiteral("Torvane");
const auto newLinkUrl = QStringLiteral("www.torvane.example");
constexpr OleColour hoverRed = 0x0000FF;
const OleColour disabledText = Colours::system(17);
} // namespace

vbwHyperlink::vbwHyperlink(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_caption(newLinkCaption), m_url(newLinkUrl), m_foreColor(look.fore) {
    takeFont(look.font);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // A link that is parked outside of its window is never seen: no font is loaded to measure it, and its
    // hand waits for the pointer.
    if (parent.rect().intersects(geometry())) fitToCaption();
}

void vbwHyperlink::UserClick() {
    bool cancel = false;
    emit BeforeJump(cancel);
    restoreLook();
    if (cancel) return;
    // The address goes out unchanged: whether it has a scheme makes no difference here.
    const bool opened = form().runtime().browser.open(m_url);
    emit AfterJump(!opened);
}

void vbwHyperlink::performClick() {
    // As under the mouse, so that there is a look to go back to.
    if (!m_tracking) lightUp();
    UserClick();
}

void vbwHyperlink::lightUp() {
    m_savedForeColor = m_foreColor;
    m_savedUnderline = fontSpec().underline;
    m_tracking = true;
    setForeColor(m_hoverColour);
    setUnderline(m_hoverUnderline);
}

void vbwHyperlink::restoreLook() {
    m_tracking = false;
    setForeColor(m_savedForeColor);
    setUnderline(m_savedUnderline);
}

// Leaves the size as it is: an underline takes no room, and whoever sets more than the font fits the size in
// the end.
void vbwHyperlink::takeFont(const FontSpec& font) {
    const QScopedValueRollback keepsSize(m_resizing, true);
    setFontSpec(font);
}

void vbwHyperlink::setUnderline(bool underline) {
    FontSpec font = fontSpec();
    font.underline = underline;
    takeFont(font);
}

void vbwHyperlink::setCaption(const QString& caption) {
    m_caption = caption;
    fitToCaption();
    wordsChanged();
}

void vbwHyperlink::setBackColor(OleColour colour) {
    m_backColor = colour;
    update();
}

void vbwHyperlink::setAutoSize(bool autoSize) {
    m_autoSize = autoSize;
    fitToCaption();
}

void vbwHyperlink::setForeColor(OleColour colour) {
    m_foreColor = colour;
    update();
}

void vbwHyperlink::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) fitToCaption();
    Control::changeEvent(event);
}

void vbwHyperlink::fitToCaption() {
    update();
    if (!m_autoSize || m_resizing) return;
    m_resizing = true;
    const QFontMetrics metrics(font());
    resize(metrics.horizontalAdvance(m_caption), metrics.height());
    // Only on the screen is there anything that the messages could bring up to date.
    if (isVisible()) pumpEvents();
    m_resizing = false;
}

void vbwHyperlink::ReadProperties(const PropertyBag& bag) {
    m_hoverColour = bag.ReadProperty(QStringLiteral("HoverColour"), hoverRed);
    m_hoverUnderline = bag.ReadProperty(QStringLiteral("HoverUnderline"), true);
    m_caption = bag.ReadProperty(QStringLiteral("Caption"), newLinkCaption);
    m_autoSize = bag.ReadProperty(QStringLiteral("AutoSize"), true);
    m_url = bag.ReadProperty(QStringLiteral("URL"), newLinkUrl);
    takeFont(bag.ReadProperty(QStringLiteral("Font"), Fonts::M8));
    m_foreColor = bag.ReadProperty(QStringLiteral("ForeColor"), Colours::black);
    m_backColor = bag.ReadProperty(QStringLiteral("BackColor"), Colours::buttonFace);
    setEnabled(bag.ReadProperty(QStringLiteral("Enabled"), true));
    fitToCaption();
}

void vbwHyperlink::WriteProperties(PropertyBag& bag) const {
    const auto font = [](const FontSpec& named) { return QVariant::fromValue(named); };
    bag.WriteProperty(QStringLiteral("HoverColour"), m_hoverColour, hoverRed);
    bag.WriteProperty(QStringLiteral("HoverUnderline"), m_hoverUnderline, true);
    bag.WriteProperty(QStringLiteral("Caption"), m_caption, newLinkCaption);
    bag.WriteProperty(QStringLiteral("AutoSize"), m_autoSize, true);
    bag.WriteProperty(QStringLiteral("URL"), m_url, newLinkUrl);
    bag.WriteProperty(QStringLiteral("Font"), font(fontSpec()), font(Fonts::M8));
    bag.WriteProperty(QStringLiteral("ForeColor"), m_foreColor, Colours::black);
    bag.WriteProperty(QStringLiteral("BackColor"), m_backColor, Colours::buttonFace);
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
}

void vbwHyperlink::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Colours::toQColor(m_backColor));
    painter.setPen(Colours::toQColor(Enabled() ? m_foreColor : disabledText));
    // A caption that has given the size its own would break at the last fraction of a pixel.
    const int wrap = m_autoSize ? 0 : static_cast<int>(Qt::TextWordWrap);
    painter.drawText(rect(), static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | wrap, m_caption);
}

void vbwHyperlink::resizeEvent(QResizeEvent*) { fitToCaption(); }

void vbwHyperlink::enterEvent(QEnterEvent*) {
    if (testAttribute(Qt::WA_SetCursor)) return;
    setCursor(InputWords::handCursor(InputWords::handIcon(InputWords::Hand::overLink, devicePixelRatioF())));
}

void vbwHyperlink::mouseMoveEvent(QMouseEvent* event) {
    // With a button held the moves go on outside.
    const bool isInside = rect().contains(event->position().toPoint());
    if (isInside == m_tracking) return;
    isInside ? lightUp() : restoreLook();
}

void vbwHyperlink::mouseReleaseEvent(QMouseEvent* event) {
    // Only a release that ends a hover on the link itself is a click.
    if (m_tracking && rect().contains(event->position().toPoint())) UserClick();
}

void vbwHyperlink::leaveEvent(QEvent*) {
    if (m_tracking) restoreLook();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// When a skinned button paints, and what it hands to its painter.
#include "ButtonSurface.h"
#include "TransparentBlit.h"
#include "platform/forms/Form.h"
#include "platform/forms/Panel.h"

#include <QFontMetrics>
#include <QPaintEvent>

namespace torvane {

namespace {
OleColour backColourOf(const QWidget* container) {
    if (const auto* panel = qobject_cast<const Panel*>(container)) return panel->backColour();
    if (const auto* form = qobject_cast<const Form*>(container)) return form->design().backColour;
    return Colours::buttonFace;
}

QSize logicalSize(const QPixmap& picture) {
    return picture.isNull() ? QSize(0, 0) : picture.deviceIndependentSize().toSize();
}
} // namespace

ButtonSurface::ButtonSurface(QWidget& parent, const char* name, const DesignRect& rect)
    : Control(parent, name, rect) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ButtonSurface::Repaint(State state, Force force) {
    if (m_p.checkBoxBehaviour && m_p.value) state = pressed;
    if (force == unlessSame && m_p.caption == m_lastCaption && state == m_lastState) return;
    if (height() == 0 || !m_paintingAllowed) return;
    const bool isOther = state != m_lastState;
    m_lastState = state;
    m_lastCaption = m_p.caption;
    m_asked = true;
    m_askedOver = m_over;
    update();
    if (isOther) reportPressed();
}

void ButtonSurface::reportPressed() {
    QAccessible::State changed;
    changed.pressed = true;
    changed.checked = m_p.checkBoxBehaviour;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void ButtonSurface::addAccessibleState(QAccessible::State& state) const {
    state.pressed = m_lastState == pressed;
    state.checkable = m_p.checkBoxBehaviour;
    state.checked = m_p.checkBoxBehaviour && m_p.value;
    state.defaultButton = m_isDefault;
}

void ButtonSurface::repaintAtOnce(State state) {
    Repaint(state, always);
    repaint();
}

void ButtonSurface::LayoutCaption() {
    const QFontMetrics metrics(font());
    const auto measure = [&](int width) {
        return metrics.boundingRect(QRect(0, 0, width, 0), captionFlags, m_p.caption).size();
    };
    const CaptionSource source{size(), logicalSize(m_p.pictureNormal),
                               static_cast<PicturePlace>(m_p.picturePosition),
                               m_p.caption.count(u' ') == m_p.caption.size()};
    torvane::LayoutCaption(m_layout, source, measure);
}

void ButtonSurface::takeSize() {
    m_layout.client = size();
    m_layout.focus = focusRect(m_p.buttonType, size());
    LayoutCaption();
    const QRegion outline = BuildRegion(m_p.buttonType, size());
    if (outline == QRegion(rect())) {
        clearMask();
    } else {
        setMask(outline);
    }
    Repaint(normal, always);
}

void ButtonSurface::GrabParentBackground() {
    QWidget* container = parentWidget();
    m_background = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
    m_background.setDevicePixelRatio(devicePixelRatioF());
    m_background.fill(Colours::toQColor(backColourOf(container)));
    QPainter painter(&m_background);
    container->render(&painter, QPoint(), QRegion(geometry()), DrawWindowBackground);
    // The controls under this one; those above it come later in the container's list.
    for (QObject* sibling : container->children()) {
        auto* control = qobject_cast<QWidget*>(sibling);
        if (control == this) break;
        const bool isUnder = control != nullptr && !control->isHidden() && !control->isWindow() &&
                             control->geometry().intersects(geometry());
        if (isUnder) control->render(&painter, control->pos() - pos());
    }
}

void ButtonSurface::setPaintingAllowed(bool allowed) {
    // What was asked for so far still shows the properties of now.
    if (!allowed && m_asked) renderSurface();
    m_paintingAllowed = allowed;
}

bool ButtonSurface::surfaceIsStale() const {
    const qreal ratio = devicePixelRatioF();
    // Qt reports no change of a button that is switched off while its window is.
    const bool isOutdated = m_asked || (m_paintingAllowed && m_paintedEnabled != Enabled());
    return isOutdated || m_surface.devicePixelRatio() != ratio ||
           m_surface.size() != (QSizeF(size()) * ratio).toSize();
}

void ButtonSurface::renderSurface() {
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = (QSizeF(size()) * ratio).toSize();
    if (m_surface.size() != wanted) m_surface = QImage(wanted, QImage::Format_RGB32);
    m_surface.setDevicePixelRatio(ratio);
    if (!m_background.isNull() && m_background.devicePixelRatio() != ratio) GrabParentBackground();
    m_asked = false;
    m_paintedEnabled = Enabled();
    if (!m_surface.isNull()) ButtonPainter(m_surface, faceToPaint()).paint();
}

ButtonFace ButtonSurface::faceToPaint() const {
    ButtonFace face;
    face.type = m_p.buttonType;
    face.place = static_cast<PicturePlace>(m_p.picturePosition);
    face.specialEffect = m_p.specialEffect;
    face.customScheme = m_p.colorScheme == 2;
    face.enabled = Enabled();
    face.pressed = m_lastState == pressed;
    face.over = m_askedOver;
    face.focusMark = m_p.showFocusRect && m_hasFocus;
    face.showFocusRect = m_p.showFocusRect;
    face.isDefault = m_isDefault;
    face.softBevel = m_p.softBevel;
    face.useGreyscale = m_p.useGreyscale;
    face.useMaskColor = m_p.useMaskColor;
    face.caption = m_p.caption;
    face.font = font();
    face.colours = palette();
    face.layout = m_layout;
    const qreal ratio = devicePixelRatioF();
    face.normalPicture = pictureAt(m_p.pictureNormal.toImage(), ratio, face.colours.mask);
    face.overPicture = pictureAt(m_p.pictureOver.toImage(), ratio, face.colours.mask);
    face.background = m_background;
    return face;
}

ButtonPalette ButtonSurface::palette() const {
    PaletteSource source;
    source.colorScheme = m_p.colorScheme;
    source.buttonType = m_p.buttonType;
    source.softBevel = m_p.softBevel;
    // Hover recolours the whole button, edges and all, when its colours are its own.
    source.back = m_askedOver && m_p.colorScheme == 2 ? m_p.backOver : m_p.backColor;
    source.backOver = m_p.backOver;
    source.fore = m_p.foreColor;
    source.foreOver = m_p.foreOver;
    source.mask = m_p.maskColor;
    source.containerBack = backColourOf(parentWidget());
    return ApplyColorScheme(source);
}

void ButtonSurface::changeEvent(QEvent* event) {
    // Under construction there is no size to lay anything out in.
    if (event->type() == QEvent::FontChange && m_layout.client.isValid()) {
        LayoutCaption();
        repaintLastState();
    }
    if (event->type() == QEvent::EnabledChange && m_paintedEnabled != Enabled()) repaintLastState();
    Control::changeEvent(event);
}

void ButtonSurface::paintEvent(QPaintEvent* event) {
    if (surfaceIsStale()) renderSurface();
    const qreal ratio = m_surface.devicePixelRatio();
    const QRectF area(event->rect());
    QPainter(this).drawImage(area, m_surface, QRectF(area.topLeft() * ratio, area.size() * ratio));
}

void ButtonSurface::resizeEvent(QResizeEvent*) {
    // Qt also reports the size at the first show, when nothing has changed.
    if (size() != m_layout.client) takeSize();
}

void ButtonSurface::showEvent(QShowEvent*) {
    if (m_p.buttonType == 11) GrabParentBackground();
    setPaintingAllowed(true);
    Repaint(normal, always);
}

void ButtonSurface::hideEvent(QHideEvent*) { m_paintingAllowed = false; }

} // namespace torvane

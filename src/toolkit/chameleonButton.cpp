// SPDX-License-Identifier: MIT
// Construction and properties of the skinned button. Mouse and keyboard are in chameleonButtonInput.cpp.
#include "chameleonButton.h"
#include "AccessKey.h"
#include "InputWords.h"
#include "platform/forms/Form.h"
#include "platform/forms/Pictures.h"

#include <QKeySequence>

namespace torvane {

namespace {
// "NAME-over.png" for "NAME.png".
QString overName(const char* picture) {
    return QString::fromLatin1(picture).replace(QStringLiteral(".png"), QStringLiteral("-over.png"));
}
constexpr int overTimerMilliseconds = 3;
constexpr int arrowPointer = 1;
constexpr int customColorScheme = 2;
} // namespace

chameleonButton::chameleonButton(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : ButtonSurface(parent, name, rect) {
    m_p.buttonType = look.type;
    m_p.caption = QString::fromUtf8(look.caption);
    m_p.enabled = look.enabled;
    m_p.font = look.font;
    m_p.colorScheme = customColorScheme;
    m_p.showFocusRect = look.showFocusRect;
    m_p.backColor = look.back;
    m_p.backOver = look.backOver.value_or(look.back);
    m_p.foreColor = look.fore;
    m_p.foreOver = look.foreOver.value_or(look.fore);
    m_p.maskColor = look.mask;
    m_p.mousePointer = arrowPointer;
    m_designPicture = look.picture;
    m_lightsUp = look.lightsUp;
    loadPictures();
    m_p.softBevel = look.softBevel;
    m_p.useGreyscale = look.useGreyscale;
    m_p.specialEffect = look.fx;
    form().wordings().addToolTip(*this, look.toolTip);
    construct();
}

chameleonButton::chameleonButton(QWidget& parent, const char* name, const DesignRect& rect)
    : ButtonSurface(parent, name, rect) {
    const ButtonPalette colours = ApplyColorScheme({});
    m_p.caption = objectName();
    m_p.font = Fonts::M8;
    m_p.backColor = m_p.backOver = colours.face;
    m_p.foreColor = m_p.foreOver = colours.text;
    construct();
}

// The set of pictures for the density of the screen that the window is on.
void chameleonButton::loadPictures() {
    const qreal ratio = devicePixelRatioF();
    if (m_designPicture == nullptr || m_pictureRatio == ratio) return;
    m_pictureRatio = ratio;
    m_p.pictureNormal = Pictures::load(QString::fromLatin1(m_designPicture), ratio);
    if (m_lightsUp) m_p.pictureOver = Pictures::load(overName(m_designPicture), ratio);
}

void chameleonButton::paintEvent(QPaintEvent* event) {
    loadPictures();
    ButtonSurface::paintEvent(event);
}

void chameleonButton::construct() {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    m_overTimer.setObjectName(QStringLiteral("OverTimer"));
    m_overTimer.setInterval(overTimerMilliseconds);
    connect(&m_overTimer, &QTimer::timeout, this, &chameleonButton::lookForPointer);
    applyProperties();
}

void chameleonButton::applyProperties() {
    setFontSpec(m_p.font);
    setEnabled(m_p.enabled);
    applyPointer();
    applyAccessKey();
    takeSize();
}

void chameleonButton::ReadProperties(const PropertyBag& bag) {
    m_p = ButtonProperties::read(bag, fontSpec());
    m_designPicture = nullptr;
    m_iconIsHand = m_p.handPointer;
    if (m_iconIsHand && m_p.mouseIcon.isNull())
        m_p.mouseIcon = InputWords::handIcon(InputWords::Hand::overButton, devicePixelRatioF());
    applyProperties();
}

void chameleonButton::WriteProperties(PropertyBag& bag) const {
    ButtonProperties now = m_p;
    now.enabled = Enabled();
    now.font = fontSpec();
    now.write(bag);
}

QString chameleonButton::accessibleText() const { return withoutAccessMarks(m_p.caption); }

void chameleonButton::applyPointer() {
    if (m_p.mousePointer == 0) return unsetCursor();
    const bool hand = m_iconIsHand && m_p.mousePointer == InputWords::customPointer;
    setCursor(hand ? InputWords::handCursor(m_p.mouseIcon)
                   : InputWords::pointer(m_p.mousePointer, m_p.mouseIcon));
}

void chameleonButton::applyAccessKey() {
    if (m_shortcutId != 0) releaseShortcut(m_shortcutId);
    m_accessKey = accessKeyOf(m_p.caption);
    m_shortcutId = 0;
    if (m_accessKey.isNull()) return;
    m_shortcutId = grabShortcut(QKeySequence(static_cast<int>(Qt::ALT) | m_accessKey.toUpper().unicode()));
}

template <typename Field>
void chameleonButton::change(Field& field, const Field& value) {
    field = value;
    repaintLastState();
}

void chameleonButton::setBackColor(OleColour colour) { change(m_p.backColor, colour); }
void chameleonButton::setBackOver(OleColour colour) { change(m_p.backOver, colour); }
void chameleonButton::setForeColor(OleColour colour) { change(m_p.foreColor, colour); }
void chameleonButton::setForeOver(OleColour colour) { change(m_p.foreOver, colour); }
void chameleonButton::setMaskColor(OleColour colour) { change(m_p.maskColor, colour); }
void chameleonButton::setColorScheme(int scheme) { change(m_p.colorScheme, scheme); }
void chameleonButton::setShowFocusRect(bool show) { change(m_p.showFocusRect, show); }
void chameleonButton::setSoftBevel(bool soft) { change(m_p.softBevel, soft); }
void chameleonButton::setSpecialEffect(int effect) { change(m_p.specialEffect, effect); }
void chameleonButton::setCheckBoxBehaviour(bool behaviour) { change(m_p.checkBoxBehaviour, behaviour); }

void chameleonButton::setButtonType(int type) {
    m_p.buttonType = type;
    if (type == 11) GrabParentBackground();
    takeSize();
}

void chameleonButton::setCaption(const QString& caption) {
    m_p.caption = caption;
    applyAccessKey();
    LayoutCaption();
    repaintLastState();
    wordsChanged();
}

void chameleonButton::setFontBold(bool bold) {
    FontSpec font = fontSpec();
    font.bold = bold;
    setFontSpec(font);
}

void chameleonButton::setFontItalic(bool italic) {
    FontSpec font = fontSpec();
    font.italic = italic;
    setFontSpec(font);
}

void chameleonButton::setFontUnderline(bool underline) {
    FontSpec font = fontSpec();
    font.underline = underline;
    setFontSpec(font);
}

void chameleonButton::setFontSize(int points) {
    FontSpec font = fontSpec();
    font.points = points;
    setFontSpec(font);
}

QString chameleonButton::FontName() const {
    return QString::fromLatin1(Fonts::standIn(fontSpec().face).designFace);
}

void chameleonButton::setFontName(const QString& name) {
    FontSpec font = fontSpec();
    for (const auto face : {FontSpec::Verdana, FontSpec::MSSansSerif, FontSpec::Tahoma, FontSpec::TrebuchetMS,
                            FontSpec::CourierNew}) {
        if (name == QLatin1String(Fonts::standIn(face).designFace)) font.face = face;
    }
    setFontSpec(font);
}

void chameleonButton::setMousePointer(int pointer) {
    m_p.mousePointer = pointer;
    applyPointer();
}

void chameleonButton::setMouseIcon(const QPixmap& icon) {
    m_p.mouseIcon = icon;
    m_iconIsHand = false;
    applyPointer();
}

void chameleonButton::setHandPointer(bool hand) {
    m_p.handPointer = m_iconIsHand = hand;
    m_p.mouseIcon =
        hand ? InputWords::handIcon(InputWords::Hand::overButton, devicePixelRatioF()) : QPixmap();
    m_p.mousePointer = hand ? InputWords::customPointer : arrowPointer;
    applyPointer();
}

void chameleonButton::setPictureNormal(const QPixmap& picture) {
    m_p.pictureNormal = picture;
    m_designPicture = nullptr;
    LayoutCaption();
    repaintLastState();
}

void chameleonButton::setPictureOver(const QPixmap& picture) {
    m_p.pictureOver = picture;
    m_designPicture = nullptr;
    if (isOver()) repaintLastState();
}

void chameleonButton::setPicturePosition(int position) {
    m_p.picturePosition = position;
    LayoutCaption();
    repaintLastState();
}

void chameleonButton::setUseMaskColor(bool use) {
    m_p.useMaskColor = use;
    if (!m_p.pictureNormal.isNull()) repaintLastState();
}

void chameleonButton::setUseGreyscale(bool use) {
    m_p.useGreyscale = use;
    if (!m_p.pictureNormal.isNull()) repaintLastState();
}

void chameleonButton::setValue(bool value) {
    m_p.value = value;
    if (m_p.checkBoxBehaviour) repaintLastState();
}

void chameleonButton::setDisplayAsDefault(bool isDefault) {
    setDefaultMark(isDefault);
    repaintLastState();
}

void chameleonButton::DisableRefresh() { setPaintingAllowed(false); }

void chameleonButton::Refresh() {
    if (m_p.buttonType == 11) GrabParentBackground();
    LayoutCaption();
    setPaintingAllowed(true);
    repaintLastState();
    repaint();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The look of Qt's buttons after a design.
#include "ToggleControl.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QProxyStyle>

namespace torvane {

namespace {
// Marks as small as the designs' lines are low: those of the desktop's style would lose their edges there.
class SmallMarks : public QProxyStyle {
public:
    explicit SmallMarks(QWidget& owner) { setParent(&owner); }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        switch (metric) {
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight: return 13;
        default: return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

// The marks are those of the classic desktop, black on white, which stand out on every skin.
QPalette paletteOf(const ToggleControl::Look& look) {
    QPalette palette;
    palette.setColor(QPalette::Base, Colours::toQColor(Colours::windowBack));
    palette.setColor(QPalette::Text, Colours::toQColor(Colours::windowText));
    QColor fore = Colours::toQColor(look.fore);
    palette.setColor(QPalette::WindowText, fore);
    fore.setAlphaF(0.5F);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, fore);
    if (look.back) palette.setColor(QPalette::Window, Colours::toQColor(*look.back));
    return palette;
}
} // namespace

ToggleControl::ToggleControl(QWidget& parent, const char* name, const DesignRect& rect, const Look& look,
                             QAbstractButton& button)
    : Control(parent, name, rect), m_look(look), m_button(button) {
    setFontSpec(look.font);
    m_button.setParent(this);
    m_button.setGeometry(this->rect());
    m_button.setStyle(new SmallMarks(m_button));
    m_button.setPalette(paletteOf(look));
    m_button.setBackgroundRole(QPalette::Window);
    m_button.setAutoFillBackground(look.back.has_value());
    m_button.setText(QString::fromUtf8(look.caption));
    m_button.setChecked(look.checked);
    setFocusProxy(&m_button);
    connect(&m_button, &QAbstractButton::clicked, this, &ToggleControl::Click);
}

// Keys that the button has no use for.
void ToggleControl::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit entered();
    } else {
        Control::keyPressEvent(event);
    }
}

QString ToggleControl::accessibleText() const {
    return QKeySequence::mnemonic(Caption()).isEmpty() ? Caption()
                                                       : QString(Caption()).remove(QLatin1Char('&'));
}

bool ToggleControl::isChecked() const { return m_button.isChecked(); }

QString ToggleControl::Caption() const { return m_button.text(); }

void ToggleControl::setCaption(const QString& caption) { m_button.setText(caption); }

} // namespace torvane

// SPDX-License-Identifier: MIT
// The look of Qt's buttons after a design.
#include "ToggleControl.h"

#include <QAbstractButton>
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
} // namespace

ToggleControl::ToggleControl(QWidget& parent, const char* name, const DesignRect& rect, const Look& look,
                             QAbstractButton& button)
    : Control(parent, name, rect), m_look(look), m_button(button) {
    setFontSpec(look.font);
    m_button.setParent(this);
    m_button.setGeometry(this->rect());
    m_button.setStyle(new SmallMarks(m_button));
    QPalette palette = m_button.palette();
    palette.setColor(QPalette::WindowText, Colours::toQColor(look.fore));
    if (look.back) palette.setColor(QPalette::Window, Colours::toQColor(*look.back));
    m_button.setPalette(palette);
    m_button.setAutoFillBackground(look.back.has_value());
    m_button.setText(QString::fromUtf8(look.caption));
    m_button.setChecked(look.checked);
    setFocusProxy(&m_button);
    connect(&m_button, &QAbstractButton::clicked, this, &ToggleControl::Click);
}

QString ToggleControl::accessibleText() const {
    return QKeySequence::mnemonic(Caption()).isEmpty() ? Caption() : QString(Caption()).remove(QLatin1Char('&'));
}

QString ToggleControl::Caption() const { return m_button.text(); }

void ToggleControl::setCaption(const QString& caption) { m_button.setText(caption); }

} // namespace torvane

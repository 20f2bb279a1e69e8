// SPDX-License-Identifier: MIT
// Painting and mouse of labels.
#include "Label.h"

#include <QMetaMethod>
#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace torvane {

namespace {
QString withLineSeparators(QString text) {
    return text.replace(QStringLiteral("\r\n"), QString(QChar::LineSeparator));
}

// Lines of that width in pixels, their tops that many pixels apart.
void layOut(QTextLayout& layout, int width, int pitch, Qt::Alignment align) {
    QTextOption option(align);
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    for (int y = 0;; y += pitch) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
    }
    layout.endLayout();
}
} // namespace

Label::Label(QWidget& parent, const char* name, const DesignRect& rect, const Look& look)
    : Control(parent, name, rect), m_caption(QString::fromUtf8(look.caption)), m_fore(look.fore),
      m_back(look.back), m_align(look.align), m_transparent(look.transparent), m_wrapWidth(width()) {
    setFontSpec(look.font);
}

Label::Label(QWidget& parent, const char* name, const DesignRect& rect, Label& source)
    : Label(parent, name, rect,
            {"", source.fontSpec(), Colours::black, source.m_align, true, Colours::buttonFace}) {
    m_caption = source.m_caption;
    m_isShadow = true;
    m_wrapWidth = source.m_wrapWidth;
    setAttribute(Qt::WA_TransparentForMouseEvents);
    stackUnder(&source);
    source.setTwin(*this);
}

bool Label::isPressable() const { return isSignalConnected(QMetaMethod::fromSignal(&Label::Click)); }

bool Label::isExposed() const {
    return !m_isShadow && (isPressable() || !m_caption.isEmpty()) && Control::isExposed();
}

QAccessible::Role Label::accessibleRole() const {
    return isPressable() ? QAccessible::Button : QAccessible::StaticText;
}

void Label::setCaption(const QString& caption) {
    if (caption == m_caption) return;
    m_caption = caption;
    update();
    wordsChanged();
    emit Change();
}

void Label::setForeColor(OleColour colour) {
    m_fore = colour;
    update();
}

void Label::setLinePitch(int pixels) {
    m_linePitch = pixels;
    update();
}

void Label::setTwin(Label& twin) {
    connect(this, &Label::Change, &twin, [this, &twin] { twin.setCaption(m_caption); });
}

void Label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!m_transparent) painter.fillRect(rect(), Colours::toQColor(m_back));
    if (m_caption.isEmpty()) return;
    painter.setPen(Colours::toQColor(m_fore));
    if (m_linePitch > 0) return drawAtPitch(painter);
    painter.drawText(textPlace(), static_cast<int>(m_align | Qt::AlignTop) | Qt::TextWordWrap, m_caption);
}

QRect Label::textPlace() const {
    const int inset = m_align == Qt::AlignLeft ? overhang() : 0;
    return {inset, 0, m_wrapWidth - inset, height()};
}

// How far the first letter of any line reaches to the left of its place, in pixels.
int Label::overhang() const {
    const QFontMetrics metrics(font());
    const auto reaches = [&](QChar letter) { return metrics.leftBearing(letter) < 0; };
    // Most captions have none, and laying them out takes longer than drawing them.
    if (std::none_of(m_caption.begin(), m_caption.end(), reaches)) return 0;
    const QString text = withLineSeparators(m_caption);
    QTextLayout layout(text, font());
    int most = 0;
    layOut(layout, m_wrapWidth, metrics.lineSpacing(), Qt::AlignLeft);
    for (int i = 0; i < layout.lineCount(); ++i) {
        const int first = layout.lineAt(i).textStart();
        if (first < text.size()) most = std::max(most, -metrics.leftBearing(text[first]));
    }
    return most;
}

void Label::drawAtPitch(QPainter& painter) const {
    const QRect place = textPlace();
    QTextLayout layout(withLineSeparators(m_caption), painter.font());
    layOut(layout, place.width(), m_linePitch, m_align);
    layout.draw(&painter, place.topLeft());
}

void Label::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit MouseDown(event->globalPosition().toPoint());
}

void Label::mouseMoveEvent(QMouseEvent* event) { emit MouseMove(event->globalPosition().toPoint()); }

void Label::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    emit MouseUp(event->globalPosition().toPoint());
    if (rect().contains(event->position().toPoint())) emit Click();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// The state of an entry.
#include "MenuEntry.h"
#include "Form.h"

namespace torvane {

MenuEntry::MenuEntry(Form& form, int level, const char* name, const char* caption, State state)
    : Component(form, name), m_level(level), m_caption(QString::fromUtf8(caption)),
      m_isSeparator(state == separator || state == hiddenSeparator), m_isHeading(state == disabled),
      m_enabled(state != disabled), m_visible(state != hidden && state != hiddenSeparator) {}

void MenuEntry::setEnabled(bool enabled) {
    if (enabled == m_enabled) return;
    m_enabled = enabled;
    emit stateChanged();
}

void MenuEntry::setVisible(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    emit stateChanged();
}

void MenuEntry::choose() {
    if (m_enabled && m_visible && !m_isSeparator) emit Click();
}

} // namespace torvane

// SPDX-License-Identifier: MIT
// An entry of a menu tree: one line of a design, with its level, caption and state. PopupMenu shows the tree.
#pragma once

#include "Control.h"

namespace torvane {

class MenuEntry : public Component {
    Q_OBJECT

public:
    enum State { ordinary, disabled, hidden, separator, hiddenSeparator };

    /// A deeper level than that of the entry before makes that one a submenu. The caption is plain text.
    MenuEntry(Form& form, int level, const char* name, const char* caption, State state = ordinary);
    /// A separator.
    MenuEntry(Form& form, int level, const char* name, State state)
        : MenuEntry(form, level, name, "", state) {}

    /// What the user can use counts as a menu, as it does in the window catalogue: neither separators nor
    /// what the design disables, which are headings.
    QString kind() const override {
        return m_isSeparator || m_isHeading ? QString() : QStringLiteral("menu");
    }
    int level() const { return m_level; }
    const QString& Caption() const { return m_caption; }
    bool isSeparator() const { return m_isSeparator; }

    bool Enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    bool Visible() const { return m_visible; }
    void setVisible(bool visible);

    /// The user has chosen the entry; one that is disabled or hidden can't be chosen.
    void choose();

signals:
    void Click();
    /// Whether it is enabled or visible has changed.
    void stateChanged();

private:
    int m_level;
    QString m_caption;
    bool m_isSeparator;
    bool m_isHeading;
    bool m_enabled;
    bool m_visible;
};

} // namespace torvane

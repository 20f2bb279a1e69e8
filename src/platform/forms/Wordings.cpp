// SPDX-License-Identifier: MIT
// Tool tips and spoken names.
#include "Wordings.h"

#include <QWidget>

namespace torvane {

void Wordings::addName(QWidget& widget, const Wording& name) { add({&widget, name, setSpokenName}); }

void Wordings::addToolTip(QWidget& widget, const Wording& tip) {
    add({&widget, tip, [](QWidget& owner, const QString& text) { owner.setToolTip(text); }});
}

void Wordings::add(const Entry& entry) {
    const QString text = QString::fromUtf8(entry.wording.text);
    if (text.isEmpty()) return;
    entry.set(*entry.widget, text);
    if (*entry.wording.key != 0) m_entries.append(entry);
}

void Wordings::follow(const Reader& read) const {
    for (const Entry& entry : m_entries) {
        const QString text =
            read(QString::fromLatin1(entry.wording.section), QString::fromLatin1(entry.wording.key));
        entry.set(*entry.widget, text.isEmpty() ? QString::fromUtf8(entry.wording.text) : text);
    }
}

void setSpokenName(QWidget& widget, const QString& name) {
    widget.setAccessibleName(name);
    QWidget* inner = widget.focusProxy();
    if (inner == nullptr || !widget.isAncestorOf(inner)) return;
    inner->setAccessibleName(name);
    for (QWidget* part : inner->findChildren<QWidget*>()) part->setAccessibleName(name);
}

} // namespace torvane

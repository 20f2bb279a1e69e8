// SPDX-License-Identifier: MIT
// Finds captions that a user does not see whole: in labels, buttons, options, skin labels and column headers.
#pragma once

#include "OpenedProgram.h"
#include "WholeCaption.h"

namespace torvane {

class CutCaptions {
public:
    /// Checks what is visible of a window now, except the controls of these names, which show texts out of
    /// files. Gives the number of captions.
    int check(const QWidget& form, const QStringList& fromFiles = {}) {
        m_captions = 0;
        for (const Label* label : form.findChildren<Label*>()) {
            if (fromFiles.contains(label->objectName()) || !isOn(form, *label)) continue;
            count(*label, label->Caption(), WholeCaption::isWhole(*label));
        }
        for (const chameleonButton* button : form.findChildren<chameleonButton*>()) {
            if (isOn(form, *button)) count(*button, button->Caption(), WholeCaption::isWhole(*button));
        }
        for (const ToggleControl* toggle : form.findChildren<ToggleControl*>()) {
            if (isOn(form, *toggle)) count(*toggle, toggle->Caption(), WholeCaption::isWhole(*toggle));
        }
        for (const TVLabel* label : form.findChildren<TVLabel*>()) {
            if (isOn(form, *label)) count(*label, label->Caption(), WholeCaption::isWhole(*label));
        }
        for (const ColumnListView* list : form.findChildren<ColumnListView*>()) checkHeaders(*list);
        return m_captions;
    }
    /// All that were cut so far, by window, control and text.
    QStringList found;

private:
    static bool isOn(const QWidget& form, const QWidget& control) {
        return isSeen(control) &&
               form.rect().intersects(QRect(control.mapTo(&form, QPoint()), control.size()));
    }
    void checkHeaders(const ColumnListView& list) {
        const auto* view = list.findChild<QTableView*>();
        if (view == nullptr) return;
        const QHeaderView& header = *view->horizontalHeader();
        for (int column = 0; column < header.count(); ++column) {
            const QString text = list.model().headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
            count(list, text, WholeCaption::isWhole(header, column));
        }
    }
    void count(const QWidget& control, const QString& text, bool isWhole) {
        if (text.trimmed().isEmpty()) return;
        ++m_captions;
        if (!isWhole) {
            found += control.window()->objectName() + QLatin1Char('.') + control.objectName() +
                     QStringLiteral(": ") + text;
        }
    }

    int m_captions = 0;
};

} // namespace torvane

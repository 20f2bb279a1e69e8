// SPDX-License-Identifier: MIT
// File dialogs of forms.
#include "CommonDialog.h"
#include "Form.h"

namespace torvane {

CommonDialog::CommonDialog(Form& form, const char* name)
    : Component(form, name), m_dialogs(form.runtime().dialogs) {}

QString CommonDialog::ShowOpen(const FileQuestion& question) { return m_dialogs.showOpen(question); }

QString CommonDialog::ShowSave(const FileQuestion& question) { return m_dialogs.showSave(question); }

QString CommonDialog::ShowFolder(const FileQuestion& question) { return m_dialogs.showFolder(question); }

} // namespace torvane

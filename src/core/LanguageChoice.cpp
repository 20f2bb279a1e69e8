// SPDX-License-Identifier: MIT
// Looking for the chosen language file.
#include "LanguageChoice.h"
#include "SettingValues.h"
#include "platform/base/File.h"
#include "platform/base/Paths.h"
#include "platform/base/RuntimeFailure.h"

namespace torvane {

namespace {
bool canBeRead(const QString& path) {
    return !path.isEmpty() && ignoring([&] { File(path).readAt(0, 1); });
}
} // namespace

QString LanguageChoice::stored() const { return TextSetting(m_settings, "Language", {}).value(); }

QString LanguageChoice::file() const {
    const QString chosen = stored();
    if (canBeRead(chosen)) return chosen;
    const QString sameName = Paths::bareName(chosen);
    if (sameName.isEmpty() || !canBeRead(folder() + sameName)) return {};
    return folder() + sameName;
}

} // namespace torvane

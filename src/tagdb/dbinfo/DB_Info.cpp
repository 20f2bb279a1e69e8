// SPDX-License-Identifier: MIT
// Headings and values of the view of an entry.
#include "DB_Info.h"
#include "core/Texts.h"

#include <algorithm>
#include <array>

namespace torvane {

namespace {
struct Platform {
    const char* system;
    const char* text; // with its blank, wherever that stands
};
constexpr std::array platforms = {Platform{"byn", "GameBoy "}, Platform{"color", "GameBoy Color "},
                                  Platform{"advance", " GameBoy Advance"}};
} // namespace

DB_Info::DB_Info(const Services& services) : DB_InfoDesign(services.runtime), m(services) {
    for (chameleonButton* button : {&chameleonButton1, &Command1}) {
        wire(*button, &chameleonButton::Click, [this] { Unload(); });
    }
}

void DB_Info::Load() {
    const Texts text(m.language, "OL-DB+Info");
    const QString title = text("oldbinfotitle");
    setWindowTitle(title);
    setAccessibleName(title);
    Label2.setCaption(text("termkind"));
    Label4.setCaption(text("termtitle"));
    Label6.setCaption(text("termcompany"));
    Label8.setCaption(text("termdate"));
    Label10.setCaption(text("termauthor"));
    Label12.setCaption(text("termplatform"));
    Label14.setCaption(text("terminfo"));
    Command1.setCaption(text("close"));
}

void DB_Info::take(const QStringList& entry) {
    const std::array<Label*, 5> labels = {&Label1, &Label3, &Label5, &Label7, &Label9};
    for (size_t i = 0; i < labels.size(); ++i) {
        labels[i]->setCaption(entry.value(static_cast<int>(i)) + QLatin1Char(' '));
    }
    const QString system = entry.value(5);
    const auto* platform = std::find_if(platforms.begin(), platforms.end(), [&](const Platform& row) {
        return system == QLatin1String(row.system);
    });
    if (platform != platforms.end()) Label11.setCaption(QString::fromLatin1(platform->text));
    Label15.setCaption(entry.value(6));
}

} // namespace torvane

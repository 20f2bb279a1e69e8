// SPDX-License-Identifier: MIT
// Captions, and what the list and the buttons do.
#include "SelLang.h"
#include "core/Funciones.h"
#include "core/Pages.h"
#include "core/SettingValues.h"
#include "settings/LanguageFiles.h"

#include <QScopeGuard>

namespace torvane {

SelLang::SelLang(const Services& services) : SelLangDesign(services.runtime), m(services) { wireControls(); }

void SelLang::wireControls() {
    wire(chameleonButton1, &chameleonButton::Click, [this] { Unload(); });
    wire(m_escape, &QShortcut::activated, [this] { Unload(); });
    wire(File1, &FileList::Click, &SelLang::File1_Click);
    wire(ChameleonButton2, &chameleonButton::Click, &SelLang::ChameleonButton2_Click, Failure::reported);
    wire(ChameleonButton3, &chameleonButton::Click, &SelLang::ChameleonButton3_Click, Failure::reported);
    wire(ChameleonButton4, &chameleonButton::Click, &SelLang::ChameleonButton4_Click, Failure::reported);
    wire(ChameleonButton17, &chameleonButton::Click, &SelLang::ChameleonButton17_Click);
}

// Nothing is selected yet: the three lines have nothing to say.
void SelLang::Load() {
    File1.setPath(LanguageFiles::folder(m.globals));
    File1.setFocus();
    Label1.setCaption(m.globals.TitlePrefix + text("title"));
    for (TVLabel* line : {&TVLabel1, &TVLabel2, &TVLabel3}) line->setCaption({});
    ChameleonButton2.setCaption(text("load"));
    ChameleonButton4.setCaption(text("add"));
    ChameleonButton3.setCaption(text("delete"));
    ChameleonButton17.setCaption(text("more"));
}

QString SelLang::info(const char* key) const {
    return INITool1.Read(QStringLiteral("FileInfo"), QString::fromLatin1(key), SelectedFile);
}

void SelLang::File1_Click() {
    SelectedFile = File1.filePath();
    TVLabel1.setCaption(info("hisname") + QLatin1Char(' ') + info("langname"));
    TVLabel2.setCaption(info("hisauthor") + QLatin1Char(' ') + info("fileauthor"));
    TVLabel3.setCaption(info("hiszone") + QLatin1Char(' ') + info("langzone"));
}

// With no file selected the setting is the bare folder. The texts are empty then, and the next start asks for
// the language.
void SelLang::ChameleonButton2_Click() {
    const TextSetting language(m.runtime.settings, "Language",
                               LanguageFiles::folder(m.globals) + QStringLiteral("\\lang_esp.tvl"));
    language.set(File1.filePath());
    m.globals.LanguageFile = language.value();
    const QString loaded = info("loaded");
    m.runtime.messages.MsgBox(loaded, MsgBoxFlags::information, QStringLiteral("LangFile Loaded"));
    Unload();
}

// The list is not refreshed: the name stays until the window is opened again.
void SelLang::ChameleonButton3_Click() {
    const QString question = Texts(m.language, "Globals")("suretodelete");
    const int answer = m.runtime.messages.MsgBox(question, MsgBoxFlags::question | MsgBoxFlags::yesNo,
                                                 QStringLiteral("Torvane 1.1"));
    if (answer == MsgBoxFlags::answerYes && !isUnloaded()) LanguageFiles::remove(File1.filePath());
}

void SelLang::ChameleonButton4_Click() {
    const QString path = Dlg.ShowOpen({QStringLiteral("Torvane 1.1 » LangFile Loader"),
                                       QStringLiteral("Torvane 1.1 LangFiles|*.tvl"),
                                       1,
                                       {}});
    const auto refreshed = qScopeGuard([this] { File1.Refresh(); });
    if (!path.isEmpty() && path != QStringLiteral(" ")) LanguageFiles::add(m.globals, path);
}

void SelLang::ChameleonButton17_Click() { m.funciones.OpenURL(m.hosts.address(Pages::languages)); }

} // namespace torvane

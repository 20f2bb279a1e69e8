// SPDX-License-Identifier: MIT
// The choice of the language at the first start.
#include "SelLangStartUp.h"
#include "core/Desk.h"
#include "core/Globals.h"
#include "core/LanguageChoice.h"
#include "core/SettingValues.h"
#include "platform/forms/Pictures.h"

namespace torvane {

namespace {
constexpr OleColour red = 0x0000FF;
constexpr OleColour plainWhite = 0xFFFFFF;
} // namespace

SelLangStartUp::SelLangStartUp(const Services& services)
    : SelLangStartUpDesign(services.runtime), m(services) {
    wireControls();
    setAnswersVisible(false);
    // The typed text lies over the languages; it must not take their clicks.
    Label7.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SelLangStartUp::wireControls() {
    wire(Label4, &Label::Click, &SelLangStartUp::Label4_Click);
    wire(Label5, &Label::Click, &SelLangStartUp::Label5_Click);
    wire(Label6, &Label::Click, &SelLangStartUp::Label6_Click);
    wire(ok, &Label::Click, &SelLangStartUp::ok_Click);
    wire(no, &Label::Click, &SelLangStartUp::no_Click);
    wire(Timer1, &Timer::Tick, &SelLangStartUp::Timer1_Tick);
    wire(Timer2, &Timer::Tick, &SelLangStartUp::Timer2_Tick);
}

void SelLangStartUp::queryUnload() { m.desk.endProgram(); }

void SelLangStartUp::Load() {
    if (!LanguageChoice(m.runtime.settings, m.globals).file().isEmpty()) {
        Unload();
        m.desk.startApplication();
        return;
    }
    ShowDialog(QStringLiteral("Escoge Idioma\r\nSel·lecciona Llengua\r\nSelect Your Language"));
}

void SelLangStartUp::ShowDialog(const QString& text) { m_typewriter.type(text); }

void SelLangStartUp::Timer1_Tick() { m_typewriter.tick(); }

void SelLangStartUp::chooseLanguage(Label& label, const QString& code, const QString& question) {
    label.setForeColor(red);
    if (ChosenLanguage != code) ShowDialog(question);
    setAnswersVisible(true);
    ChosenLanguage = code;
    for (Label* other : {&Label4, &Label5, &Label6}) {
        if (other != &label) other->setEnabled(false);
    }
}

void SelLangStartUp::Label4_Click() {
    chooseLanguage(Label4, QStringLiteral("esp"), QStringLiteral("Español. ¿Bien?"));
}

void SelLangStartUp::Label5_Click() {
    chooseLanguage(Label5, QStringLiteral("cat"), QStringLiteral("Català. Bé?"));
}

void SelLangStartUp::Label6_Click() {
    chooseLanguage(Label6, QStringLiteral("eng"), QStringLiteral("English. OK?"));
}

void SelLangStartUp::TurnToWhite() {
    for (Label* label : {&Label4, &Label5, &Label6}) {
        label->setForeColor(plainWhite);
        label->setEnabled(true);
    }
}

void SelLangStartUp::no_Click() {
    TurnToWhite();
    setAnswersVisible(false);
    Load();
}

void SelLangStartUp::ok_Click() {
    TextSetting(m.runtime.settings, "Language", QString())
        .set(m.globals.AppPath + QStringLiteral("\\data\\lang\\lang_") + ChosenLanguage +
             QStringLiteral(".tvl"));
    setAnswersVisible(false);
    for (Label* label : {&Label4, &Label5, &Label6}) label->setVisible(false);
    // The image is a hidden store; what the user sees is the window's own picture.
    Image1.setPicture(Pictures::Deferred("SelLangStartUp-second.jpg"));
    setPicture(Image1.deferred());
    ShowDialog(thanks());
    Timer2.setEnabled(true);
}

QString SelLangStartUp::thanks() const {
    if (ChosenLanguage == QStringLiteral("esp")) {
        return QStringLiteral(
            "¡Gracias! Si necesitas algo, llámame. Estaré en Configuración. ¡Que disfrutes de Torvane!");
    }
    if (ChosenLanguage == QStringLiteral("cat")) {
        return QStringLiteral(
            "Gràcies! Si necessites res, crida'm. Estaré a la Configuració. Que gaudeixis de Torvane!");
    }
    return QStringLiteral("Thanks! If you need me, i'll be in Configuration. I hope you will enjoy Torvane!");
}

void SelLangStartUp::Timer2_Tick() {
    Timer2.setEnabled(false);
    Unload();
    m.desk.startApplication();
}

void SelLangStartUp::setAnswersVisible(bool visible) {
    ok.setVisible(visible);
    no.setVisible(visible);
}

} // namespace torvane

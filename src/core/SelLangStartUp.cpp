// SPDX-License-Identifier: MIT
// The choice of the language at the first start.
#include "SelLangStartUp.h"
#include "platform/forms/Pictures.h"

namespace torvane {

namespace {
constexpr OleColour red = 0x0000FF;
constexpr OleColour plainWhite = 0xFFFFFF;
const QString languageKey = QStringLiteral("Language");
} // namespace

SelLangStartUp::SelLangStartUp(Runtime& runtime, Desk& desk, const Globals& globals)
    : SelLangStartUpDesign(runtime), m_desk(desk), m_globals(globals) {
    wireControls();
    setAnswersVisible(false);
    // The typed text lies over the languages; it must not take their clicks.
    Label7.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SelLangStartUp::wireControls() {
    wire(Label4, &Label::Click, this, &SelLangStartUp::Label4_Click);
    wire(Label5, &Label::Click, this, &SelLangStartUp::Label5_Click);
    wire(Label6, &Label::Click, this, &SelLangStartUp::Label6_Click);
    wire(ok, &Label::Click, this, &SelLangStartUp::ok_Click);
    wire(no, &Label::Click, this, &SelLangStartUp::no_Click);
    wire(Timer1, &Timer::Tick, this, &SelLangStartUp::Timer1_Tick);
    wire(Timer2, &Timer::Tick, this, &SelLangStartUp::Timer2_Tick);
}

void SelLangStartUp::Load() {
    if (!runtime()
             .settings.GetSetting(Config::application, Config::section, languageKey, QString())
             .isEmpty()) {
        Unload();
        m_desk.startApplication();
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
    runtime().settings.SaveSetting(Config::application, Config::section, languageKey,
                                   m_globals.AppPath + QStringLiteral("\\data\\lang\\lang_") +
                                       ChosenLanguage + QStringLiteral(".tvl"));
    setAnswersVisible(false);
    for (Label* label : {&Label4, &Label5, &Label6}) label->setVisible(false);
    // The image is a hidden store; what the user sees is the window's own picture.
    Image1.setPicture(Pictures::load(QStringLiteral("SelLangStartUp-second.jpg"), devicePixelRatioF()));
    setPicture(Image1.Picture());
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
    m_desk.startApplication();
}

void SelLangStartUp::setAnswersVisible(bool visible) {
    ok.setVisible(visible);
    no.setVisible(visible);
}

} // namespace torvane

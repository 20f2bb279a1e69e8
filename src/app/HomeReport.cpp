// SPDX-License-Identifier: MIT
// Reporting what is wrong with the folders that the program writes to.
#include "HomeReport.h"
#include "Program.h"
#include "core/FailureTexts.h"
#include "core/LanguageChoice.h"
#include "core/SettingValues.h"
#include "core/Texts.h"
#include "platform/base/NativeText.h"

#include <QLocale>

namespace torvane {

namespace {
// The chosen language. Who has not chosen any yet gets that of the desktop.
QString languageFile(const Program& program) {
    const LanguageChoice choice(program.runtime.settings, program.globals);
    if (!choice.isFirst()) return choice.file();
    const QLocale::Language language = QLocale::system().language();
    const char* code = language == QLocale::Spanish ? "esp" : language == QLocale::Catalan ? "cat" : "eng";
    return choice.folder() + QStringLiteral("lang_%1.tvl").arg(QLatin1String(code));
}

class HomeTexts {
public:
    explicit HomeTexts(const Program& program)
        : m_globals{program.globals.AppPath, {}, {}, languageFile(program), {}} {}

    QString of(const OpenedHome& home) const {
        if (!home.problem) return {};
        return with(whatItMeans(home), *home.problem);
    }
    QString ofSettings(const RuntimeFailure& failure) const {
        return with(
            Texts(m_language, "Home")(
                "settings",
                QStringLiteral("No se puede guardar la configuración. Se perderá al cerrar Torvane.")),
            failure);
    }

private:
    QString whatItMeans(const OpenedHome& home) const {
        const Texts texts(m_language, "Home");
        if (home.isClosed) return texts("closed", QStringLiteral("No se puede abrir la carpeta de Torvane."));
        if (home.isForLooking) {
            return texts("lookonly",
                         QStringLiteral("No se puede escribir en la carpeta de Torvane. Puedes mirar "
                                        "y jugar, pero no se guardará nada en ella."));
        }
        return texts("incomplete", QStringLiteral("No se ha podido poner al día la carpeta de Torvane."));
    }
    // Whole paths: the name alone would not say which folder it is.
    QString with(const QString& text, const RuntimeFailure& failure) const {
        const QString path = QString::fromUtf8(NativeText::toNative(failure.file()));
        return QStringLiteral("%1\n\n%2: %3 (%4)")
            .arg(text, path, FailureTexts(m_language).reason(failure), QString::number(failure.number()));
    }

    Globals m_globals;
    LanguageTables m_language{m_globals};
};

QStringList problemsOfSettings(Settings& settings, const OpenedHome& home, const HomeTexts& texts) {
    // Whoever may only look must still be able to choose a language, and so must others on a full disk, which
    // is often that of the settings, too.
    const bool isDiskFull = home.problem && home.problem->number() == RuntimeFailure::diskFull;
    if (home.isForLooking || isDiskFull) settings.keepWhatFails();
    try {
        settings.requireStorable(Config::application);
    } catch (const RuntimeFailure& failure) {
        settings.keepWhatFails();
        return {texts.ofSettings(failure)};
    }
    return {};
}
} // namespace

void reportHome(Program& program, const OpenedHome& home) {
    const HomeTexts texts(program);
    QStringList problems;
    if (home.problem) problems.append(texts.of(home));
    if (!home.isClosed) problems += problemsOfSettings(program.runtime.settings, home, texts);
    if (problems.isEmpty()) return;
    program.runtime.messages.MsgBox(problems.join(QStringLiteral("\n\n")), MsgBoxFlags::exclamation);
}

} // namespace torvane

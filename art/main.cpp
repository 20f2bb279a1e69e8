// SPDX-License-Identifier: MIT
// The painter: renders every picture of the program at build time.
// Arguments: the folder of the catalogue's tables, the folder of the sources, the table of the libraries, the
// output folder.
#include "Backgrounds.h"
#include "Catalogue.h"
#include "Credits.h"
#include "Icons.h"
#include "Movies.h"
#include "Output.h"

#include <QGuiApplication>

#include <cstdio>
#include <exception>
#include <utility>

using namespace torvane;

namespace {

// QtSvg only warns about what it can't draw and skips it; for the build an incomplete picture is a failure.
bool drawingsAreWhole = true;
QtMessageHandler printMessage = nullptr;

void noteMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (qstrcmp(context.category, "qt.svg") == 0) drawingsAreWhole = false;
    printMessage(type, context, message);
}

constexpr std::pair<const char*, AssistantPage> assistantPages[] = {
    {"NewAssistant-One.jpg", AssistantPage::Welcome},
    {"NewAssistant-Two.jpg", AssistantPage::Choice},
    {"NewAssistant-Three.jpg", AssistantPage::Sources},
    {"NewAssistant-Four.jpg", AssistantPage::Trouble}};

constexpr std::pair<const char*, QImage (*)(const Workshop&)> plainWindows[] = {
    {"TorvMsg.jpg", paintTorvMsg},
    {"ZIP_Viewer.jpg", paintZipViewer},
    {"ZIP_Viewer-Mensaje.jpg", paintZipWait},
    {"EditDB.jpg", paintEditDB},
    {"DB_Info.jpg", paintDBInfo},
    {"Form2.jpg", paintForm2},
    {"Torvette.jpg", paintTorvette},
    {"SearchROM.jpg", paintSearchROM},
    {"AdvSearch.jpg", paintAdvSearch},
    {"Compartir.jpg", paintCompartir},
    {"Compartir-Image16.bmp", paintUnreadPicture},
    {"AmpliCaptura.jpg", paintAmpliCaptura},
    {"URL.jpg", paintURL},
    {"AddPersonalWeb.jpg", paintAddPersonalWeb},
    {"ConfGen.jpg", paintConfGen},
    {"SelLang.jpg", paintSelLang},
    {"Aboutfrm.jpg", paintAboutfrm},
    {"Splash.bmp", paintSplash}};

void paintBackgrounds(const Catalogue& catalogue, const QString& sources, Output& output) {
    for (int scale : {1, 2}) {
        const Workshop shop{catalogue, QDir(sources + "/svg"), scale};
        const QImage mainFrm = paintMainFrm(shop);
        output.picture(scaledName("MainFrm.jpg", scale), mainFrm);
        output.picture(scaledName("TitleBand.jpg", scale), cutTitleBand(mainFrm, scale));
        output.picture(scaledName("SelLangStartUp.jpg", scale), paintSelLangStartUp(shop, false));
        output.picture(scaledName("SelLangStartUp-second.jpg", scale), paintSelLangStartUp(shop, true));
        for (const auto& [name, paint] : plainWindows) output.picture(scaledName(name, scale), paint(shop));
        for (const auto& [name, page] : assistantPages)
            output.picture(scaledName(name, scale), paintAssistant(shop, page));
    }
}

} // namespace

int main(int argc, char* argv[]) {
    printMessage = qInstallMessageHandler(noteMessage);
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 5) {
        std::fputs("usage: torvane_art_painter CATALOGUE SOURCES LIBRARIES OUTPUT\n", stderr);
        return 2;
    }
    try {
        const Catalogue catalogue(arguments[1]);
        Output output(arguments[4]);
        paintBackgrounds(catalogue, arguments[2], output);
        paintIcons(catalogue, arguments[2], output);
        paintTray(arguments[2], output);
        paintMovies(output, Credits(arguments[3], TORVANE_VERSION));
        output.resourceList();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "torvane_art_painter: %s\n", failure.what());
        return 1;
    }
    return drawingsAreWhole ? 0 : 1;
}

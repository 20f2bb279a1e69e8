// SPDX-License-Identifier: MIT
// The backgrounds of the windows: where plates, wells and slots are. All rectangles come from the catalogue.
#pragma once

#include "Catalogue.h"

#include <QDir>
#include <QImage>

namespace torvane {

/// What a background needs besides its own layout.
struct Workshop {
    const Catalogue& catalogue;
    QDir drawings; ///< the folder of the SVG sources
    int scale;     ///< device pixels for one logical pixel: 1 or 2
};

/// The main window.
QImage paintMainFrm(const Workshop& shop);
/// The title band of the main window: the top rows of its background, so that the two meet without a seam.
QImage cutTitleBand(const QImage& mainFrm, int scale);
/// The window that shows the content of a ZIP archive.
QImage paintZipViewer(const Workshop& shop);
/// The panel that covers its list while the archive is being unpacked.
QImage paintZipWait(const Workshop& shop);
/// The yes-or-no box.
QImage paintTorvMsg(const Workshop& shop);
/// The window of the tag database.
QImage paintEditDB(const Workshop& shop);
/// The window that shows one entry of the database in full.
QImage paintDBInfo(const Workshop& shop);
/// The window in which a game is chosen for an entry of the database.
QImage paintForm2(const Workshop& shop);
/// The compact window, unfolded: its strip is the only part that is visible while it is folded.
QImage paintTorvette(const Workshop& shop);
/// The window that searches for a game on the web.
QImage paintSearchROM(const Workshop& shop);
/// The window that searches in the list of games.
QImage paintAdvSearch(const Workshop& shop);
/// The gallery of screenshots.
QImage paintCompartir(const Workshop& shop);
/// The picture that the gallery shows instead of a file that it can't read.
QImage paintUnreadPicture(const Workshop& shop);
/// The window of one enlarged screenshot: a dark stage, because the picture's size is not known.
QImage paintAmpliCaptura(const Workshop& shop);
/// The list of web pages.
QImage paintURL(const Workshop& shop);
/// The window in which the user adds a web page.
QImage paintAddPersonalWeb(const Workshop& shop);
/// The general settings.
QImage paintConfGen(const Workshop& shop);
/// The choice of the language.
QImage paintSelLang(const Workshop& shop);
/// The about window.
QImage paintAboutfrm(const Workshop& shop);
/// The start window: the helper figure in the night, asking (`glad` false) or giving thanks (`glad` true).
QImage paintSelLangStartUp(const Workshop& shop, bool glad);

/// The pages of the assistant: greeting, the choice between a file and a folder, the question whether to
/// delete the source files, and the page for a failure.
enum class AssistantPage { Welcome, Choice, Sources, Trouble };
/// One page of the assistant.
QImage paintAssistant(const Workshop& shop, AssistantPage page);

/// The intro window: everything outside the device has the colour of the top left pixel.
QImage paintSplash(const Workshop& shop);

} // namespace torvane

// SPDX-License-Identifier: MIT
// The making of modules and windows.
#include "Program.h"

namespace torvane {

Program::Program(Runtime& programRuntime, const QString& applicationFolder)
    : runtime(programRuntime), globals{applicationFolder, {}, {}, {}, {}},
      language(globals,
               [this](const QString& section, const QString& key, const QString& file) {
                   return menuing.get().INITool1.Read(section, key, file);
               }),
      hosts(globals),
      funciones({globals, language, hosts, runtime.messages, runtime.dialogs, runtime.settings}, *this),
      emulators(globals), shell(runtime.processes), id3(globals, language, runtime.messages), desk(*this),
      menuing([this] { return std::make_unique<Menuing>(runtime); }),
      selLangStartUp([this] { return std::make_unique<SelLangStartUp>(runtime, desk, globals); }),
      splash([this] { return std::make_unique<Splash>(runtime, desk, globals); }), mainFrm([this] {
          return std::make_unique<MainFrm>(
              MainFrmParts{runtime, desk, globals, language, hosts, funciones, emulators, shell, id3});
      }),
      torvMsg([this] {
          return std::make_unique<TorvMsg>(runtime, desk, language,
                                           [this](const QString& path) { deleteRomAndRefresh(path); });
      }),
      newAssistant([this] {
          return std::make_unique<NewAssistant>(NewAssistantParts{runtime, desk, globals, language});
      }),
      zipViewer([this] {
          return std::make_unique<ZIP_Viewer>(
              ZIP_ViewerParts{runtime, desk, globals, language, emulators, shell});
      }) {}

Program::~Program() = default;

void Program::start() {
    runtime.guarded([this] {
        selLangStartUp.load();
        if (SelLangStartUp* window = selLangStartUp.ifLoaded()) window->Show();
    });
}

void Program::followLink(const QString& url) {
    mainFrm.get().URL_Linker.setURL(url);
    mainFrm.get().URL_Linker.UserClick();
}

void Program::pointGamesAtLibrary() {
    mainFrm.get().Games.setPath(globals.AppPath + QStringLiteral("\\roms"));
}

void Program::deleteRomAndRefresh(const QString& path) {
    funciones.DeleteRom(path);
    mainFrm.get().GetGameList(QString(), QString());
}

} // namespace torvane

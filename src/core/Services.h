// SPDX-License-Identifier: MIT
// What a window works with. One set for all windows, owned by the program, which outlives them.
#pragma once

namespace torvane {

struct Runtime;
struct Globals;
class CompactWindow;
class Desk;
class EmulatorCatalogue;
class Foreground;
class Funciones;
class GameShelf;
class Hosts;
class ID3;
class LanguageTables;
class ShellAndClose;
struct ShownPicture;
class TraySign;

struct Services {
    Runtime& runtime;
    Desk& desk;
    GameShelf& shelf;
    CompactWindow& compact;
    Foreground& foreground;
    Globals& globals;
    const LanguageTables& language;
    const Hosts& hosts;
    Funciones& funciones;
    EmulatorCatalogue& emulators;
    ShellAndClose& shell;
    ID3& id3;
    ShownPicture& shown;
    TraySign& tray;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// The list of emulators, of any bytes: only its first line counts, and if that is unusable the previous
// emulator stays.
// Input: the file.
#include "Fuzz.h"
#include "emulator/EmulatorCatalogue.h"
#include "platform/base/CodePage1252.h"
#include "support/TagReference.h"

using namespace torvane;
using namespace torvane::fuzz;

FUZZ_TARGET(emulators) {
    static const Scratch folder;
    static const bool isMade = std::filesystem::create_directory(folder.path() + "/emuladores");
    require(isMade, "there is a folder for the list");
    static const Globals globals{QString::fromStdString(folder.path()), {}, {}, {}, {}};
    const std::string file(reinterpret_cast<const char*>(data), size);
    folder.write("emuladores/emus.dat", file);
    EmulatorCatalogue catalogue(globals);
    catalogue.EmulatorCommand = QStringLiteral("former");
    catalogue.read();
    const std::string line = file.substr(0, file.find_first_of("\r\n")).substr(0, 16384);
    const std::vector<std::string> parts = reference::cut(line, "#");
    if (parts.size() < 2) {
        require(catalogue.EmulatorCommand == QStringLiteral("former"), "a line without sign changes nothing");
        return 0;
    }
    const QString beginning = globals.AppPath + QStringLiteral("\\emuladores");
    require(catalogue.EmulatorCommand.startsWith(beginning), "the emulator is below its folder");
    const QByteArray stored = CodePage1252::toBytes(catalogue.EmulatorCommand.sliced(beginning.size()));
    require(stored.toStdString() == parts[1], "the second part of the first line is the emulator");
    return 0;
}

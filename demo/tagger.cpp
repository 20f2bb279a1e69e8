// SPDX-License-Identifier: MIT
// Writes the tag line of a demo game at build time, through the very module that the program uses.
// Owns nothing of the format; a build tool of the demos alone.
#include "catalogue/ID3.h"
#include "platform/base/Paths.h"
#include "platform/base/RuntimeFailure.h"

#include <iostream>

namespace torvane {
namespace {

/// Appending asks the user nothing; should it ever do so, the build log shows it and the answer is yes.
class BuildLog : public MessageBoxes {
public:
    int MsgBox(const QString& text, int, const QString&) override {
        std::cerr << "tagger: " << text.toStdString() << '\n';
        return MsgBoxFlags::answerOk;
    }
};

void tag(char** arguments) {
    const Globals globals;
    const LanguageTables noTexts(globals);
    BuildLog log;
    ID3 id3(globals, noTexts, log);
    id3.NewCompany = QString::fromUtf8(arguments[1]);
    id3.NewTitle = QString::fromUtf8(arguments[2]);
    id3.NewDate = QString::fromUtf8(arguments[3]);
    id3.NewInfo = QString::fromUtf8(arguments[4]);
    id3.AppendRomTag(Paths::spelled(arguments[0]));
}

} // namespace
} // namespace torvane

int main(int argc, char** argv) try {
    if (argc != 6) {
        std::cerr << "usage: tagger ROM COMPANY TITLE DATE INFO (all texts in UTF-8)\n";
        return 2;
    }
    torvane::tag(argv + 1);
    return 0;
} catch (const torvane::RuntimeFailure& failure) {
    std::cerr << "tagger: " << failure.text().toStdString() << '\n';
    return 1;
}

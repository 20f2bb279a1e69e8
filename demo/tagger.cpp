// SPDX-License-Identifier: MIT
// Writes the tag line of a demo game at build time, with the same module as the program. A build tool for the
// demos only; it knows nothing of the format.
#include "catalogue/ID3.h"
#include "platform/base/Paths.h"
#include "platform/base/RuntimeFailure.h"

#include <iostream>

namespace torvane {
namespace {

/// Appending never asks the user; if it did, the build log would show the question, and the answer is yes.
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

// SPDX-License-Identifier: MIT
// A display with a window manager for one test class: for what the offscreen platform has none of. To be
// started in the class's initMain, before there is an application object.
#pragma once

#include <QByteArray>
#include <csignal>
#include <initializer_list>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace torvane {

/// Starts a program that ends when this process does. It is killed in a way that lets it tidy up.
inline void startBeside(std::initializer_list<const char*> command, int keptDescriptor = -1) {
    if (fork() != 0) return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    for (int descriptor = 0; descriptor < 64; ++descriptor) {
        if (descriptor > 2 && descriptor != keptDescriptor) close(descriptor);
    }
    std::vector<char*> words;
    for (const char* word : command) words.push_back(const_cast<char*>(word));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
}

/// Starts a virtual display and a window manager, and has this process use them. False if there is none to
/// be had.
inline bool startOwnDisplay() {
    int ends[2];
    if (pipe(ends) != 0) return false;
    startBeside({"Xvfb", "-displayfd", QByteArray::number(ends[1]).constData(), "-screen", "0", "800x600x24",
                 "-nolisten", "tcp", "-noreset"},
                ends[1]);
    close(ends[1]);
    QByteArray number;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) number += c;
    close(ends[0]);
    if (number.isEmpty()) return false;
    qputenv("DISPLAY", ':' + number);
    qputenv("QT_QPA_PLATFORM", "xcb");
    startBeside({"openbox"});
    return true;
}

} // namespace torvane

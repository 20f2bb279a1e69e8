// SPDX-License-Identifier: MIT
// The main function of the benchmarks that repeat their work in rounds. Their arguments are PROGRAM_FOLDER
// CONFIGURATION_FOLDER ROUNDS.
#pragma once

#include "ProgramUnderBench.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

namespace torvane::bench {

/// Measures and prints; gets the folder of the program as a real path, and how many rounds count.
using Measure = std::function<void(ProgramUnderBench& bench, const std::string& folder, int rounds)>;

/// Gives the program to the benchmark, not yet started, and ends the process after it without taking the
/// program down. Returns only if the arguments are wrong, with the status for that.
inline int measureInRounds(int argc, char** argv, const Measure& measure) {
    const QApplication application(argc, argv);
    if (argc != 4) return 2;
    ProgramUnderBench bench(argv[1], argv[2]);
    measure(bench, argv[1], std::atoi(argv[3]));
    std::fflush(nullptr);
    _exit(0);
}

} // namespace torvane::bench

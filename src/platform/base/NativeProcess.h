// SPDX-License-Identifier: MIT
// Starts other programs and waits until they end.
#pragma once

#include "Seams.h"

namespace torvane {

class NativeProcess : public ProcessRunner {
public:
    bool isProgram(const QByteArray& path) override;
    void runAndWait(const QByteArray& program, const QByteArrayList& arguments) override;
};

} // namespace torvane

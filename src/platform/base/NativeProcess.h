// SPDX-License-Identifier: MIT
// Starts programs of this machine and waits for their end.
#pragma once

#include "Seams.h"

namespace torvane {

class NativeProcess : public ProcessRunner {
public:
    bool isProgram(const QByteArray& path) override;
    void runAndWait(const QByteArray& program, const QByteArrayList& arguments) override;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// What this process answers to the questions that choose a home.
#include "ProgramHome.h"
#include "UserFolders.h"
#include "platform/base/Paths.h"

namespace torvane {

Home homeOfProgram(const QByteArray& given) {
    return chooseHome({Paths::real(Paths::applicationFolder()), QByteArrayLiteral(TORVANE_TEMPLATE),
                       UserFolders::data(), given});
}

} // namespace torvane

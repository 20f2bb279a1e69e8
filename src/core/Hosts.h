// SPDX-License-Identifier: MIT
// Where the program's servers are: a setting of the deployment, in the file "\data\hosts.ini". A host is
// an address or a folder of the program's tree, so that a fresh copy works without a network.
#pragma once

#include "Globals.h"

namespace torvane {

class Hosts {
public:
    enum class Host { update, web, search };

    explicit Hosts(const Globals& globals) : m_globals(globals) {}

    /// The address of a page or file of a host: the host, then the path, which begins with "/". For a
    /// host that is a folder this is a file address ("file:///..."), percent-encoded. A missing file or
    /// key means the folder "data/site".
    QString address(Host host, const QString& path) const;

private:
    const Globals& m_globals;
};

} // namespace torvane

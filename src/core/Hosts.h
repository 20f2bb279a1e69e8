// SPDX-License-Identifier: MIT
// Where the program's servers are: a setting of the deployment, in the file "\data\hosts.ini". A host is
// an address or a folder of the program's tree, so that a fresh copy works without a network.
#pragma once

#include "Globals.h"

namespace torvane {

class Hosts {
public:
    enum class Host { update, web, search };

    /// A page of a host; Pages.h lists them. The path begins with "/".
    struct Page {
        Host host;
        QLatin1String path;
    };

    explicit Hosts(const Globals& globals) : m_globals(globals) {}

    /// The address of a page or file of a host: the host, then the path, which begins with "/". A missing
    /// file or key means the folder "data/site".
    ///
    /// For a host that is a folder this is a file address ("file:///..."), percent-encoded, of a file in that
    /// folder. A path without a query is the file's name, taken literally: "/url.dat". A browser opens no
    /// file whose name has a query in it, so a path with one becomes the name of an HTML file: the path
    /// up to its first dot, then the query, with "-" for whatever is no ASCII letter, digit or "_", and at
    /// most 100 characters of that. "/modules.php?name=FAQ" is "modules-name-FAQ.html". The value of the key
    /// "query" is what somebody typed: it never becomes part of a name, and neither does what follows it.
    QString address(Host host, const QString& path) const;
    /// The address of a page. For the search, what the user typed follows as it is, without any encoding.
    QString address(const Page& page, const QString& typed = {}) const {
        return address(page.host, page.path + typed);
    }

private:
    const Globals& m_globals;
};

} // namespace torvane

// SPDX-License-Identifier: MIT
// What Qt says of the windowing system, for a while: the code for Wayland can be tested without a compositor.
#pragma once

#include <QString>
#include <utility>

// As Qt's library exports it; its header is private.
class __attribute__((visibility("default"))) QGuiApplicationPrivate {
public:
    static QString* platform_name;
};

namespace torvane {

class ClaimedPlatform {
public:
    explicit ClaimedPlatform(const QString& name)
        : m_name(name), m_before(std::exchange(QGuiApplicationPrivate::platform_name, &m_name)) {}
    ~ClaimedPlatform() { QGuiApplicationPrivate::platform_name = m_before; }
    ClaimedPlatform(const ClaimedPlatform&) = delete;
    ClaimedPlatform& operator=(const ClaimedPlatform&) = delete;

private:
    QString m_name;
    QString* m_before;
};

} // namespace torvane

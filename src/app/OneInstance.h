// SPDX-License-Identifier: MIT
// One instance of the program for each user and program folder: a later start hands its call over and ends.
#pragma once

#include "StartCall.h"
#include "platform/base/InstanceLink.h"

#include <functional>
#include <memory>

namespace torvane {

class InstanceListener;

class OneInstance {
public:
    /// The program's folder: a real path, existing or not. Different paths to one folder count as one.
    explicit OneInstance(const QByteArray& folder);
    ~OneInstance();
    OneInstance(const OneInstance&) = delete;
    OneInstance& operator=(const OneInstance&) = delete;

    /// Hands a call over to the instance that runs; gives the exit status of this start then: 0, or 1 if the
    /// call could not be handed over, which is reported on standard error. Nothing if this start goes on:
    /// because it is the first one, or because the system offers no way to find that out. Needs no
    /// application object.
    std::optional<int> handOver(const StartCall& call);

    /// From now on later starts are reported, while events are served. Needs the application object.
    void listen(const std::function<void(const StartCall&)>& called);

    /// To be called when the process ends: from now on later starts wait for its end and then go on by
    /// themselves. Gives the calls that have come and were not reported, as one; nothing if there is none.
    /// Those starts have ended, so somebody has to answer them. Needs the application object.
    std::optional<StartCall> close();

private:
    void report(const QByteArray& message) const;

    std::optional<InstanceLink> m_link;
    std::function<void(const StartCall&)> m_called;
    std::unique_ptr<InstanceListener> m_listener;
};

} // namespace torvane

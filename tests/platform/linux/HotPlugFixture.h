#pragma once

#include "discovery/ThunderBoltMonitor.h"
#include "foundation/NotificationNames.h"
#include "foundation/PlainMainQueue.h"
#include "platform/linux/LinuxFixture.h"

namespace orvana::test
{

/// A made-up machine whose devices come and go while it is watched.
class HotPlug : public LinuxFixture
{
protected:
    HotPlug() { m_queue = &m_mainQueue; }
    ~HotPlug() override { m_host.reset(); } // the host must be destroyed before its queue

    /// Records the reported events: "attached", "detached", "mounted", "unmounted", "renamed".
    void watch()
    {
        m_subscriptions.push_back(m_center.subscribe(notification::TBDeviceAttached,
                                                     [this](const Notification &) { note("attached"); }));
        m_subscriptions.push_back(m_center.subscribe(notification::TBDeviceDeattached,
                                                     [this](const Notification &) { note("detached"); }));
        host().volumeEvents().subscribe([this](platform::VolumeChange change) {
            note(change == platform::VolumeChange::Mounted     ? "mounted"
                 : change == platform::VolumeChange::Unmounted ? "unmounted"
                                                               : "renamed");
        });
        m_monitor = std::make_unique<ThunderBoltMonitor>(host().registry(), m_center);
        m_monitor->MonitorInit();
    }

    /// Runs the main queue until `what` has been reported `times` times.
    void runUntil(const std::string &what, int times = 1)
    {
        m_until = what;
        m_times = times;
        if (std::count(m_told.begin(), m_told.end(), what) < times)
            m_mainQueue.run();
    }

    void note(const std::string &what)
    {
        m_told.push_back(what);
        if (std::count(m_told.begin(), m_told.end(), m_until) >= m_times)
            m_mainQueue.quit();
    }

    PlainMainQueue m_mainQueue;
    NotificationCenter m_center;
    std::vector<NotificationCenter::Subscription> m_subscriptions;
    std::unique_ptr<ThunderBoltMonitor> m_monitor;
    std::vector<std::string> m_told;
    std::string m_until;
    int m_times = 0;
};

} // namespace orvana::test

#pragma once

#include "platform/CommandLauncher.h"
#include "platform/Host.h"

#include <functional>
#include <string>
#include <vector>

namespace orvana::test
{

/// A host whose commands a test can watch. Everything else goes to the given host, unless a test overrides
/// it.
class WatchedHost : public platform::Host, platform::CommandLauncher
{
public:
    using Words = std::vector<std::string>;

    explicit WatchedHost(platform::Host &host) : m_host(host) {}

    /// Called before each command of the disk utility, with its words.
    std::function<void(const Words &)> beforeDiskUtility = [](const Words &) {};

    /// Called when the mounted volumes have been listed by "df".
    std::function<void()> afterListing = [] {};

    /// The disks that the last command of the disk utility was told to leave alone.
    std::vector<platform::DiskFingerprint> spared;

    platform::Account &account() override { return m_host.account(); }
    platform::Places &places() override { return m_host.places(); }
    platform::VolumeFiles &volumeFiles() override { return m_host.volumeFiles(); }
    platform::HardwareRegistry &registry() override { return m_host.registry(); }
    platform::VolumeEvents &volumeEvents() override { return m_host.volumeEvents(); }
    platform::CommandLauncher &launcher() override { return *this; }
    platform::Workspace &workspace() override { return m_host.workspace(); }
    enclosures::EnclosureSetup &enclosureSetup() override { return m_host.enclosureSetup(); }
    platform::HealthReader &health() override { return m_host.health(); }

    Result run(const std::string &path, const Words &arguments) override
    {
        if (path == "/usr/sbin/diskutil")
            beforeDiskUtility(arguments);
        auto result = m_host.launcher().run(path, arguments);
        if (path == "/bin/df")
            afterListing();
        return result;
    }

    void setSparedDisks(std::vector<platform::DiskFingerprint> disks) override
    {
        spared = disks;
        m_host.launcher().setSparedDisks(std::move(disks));
    }

private:
    platform::Host &m_host;
};

} // namespace orvana::test

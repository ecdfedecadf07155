#pragma once

#include "platform/Account.h"
#include "platform/CommandLauncher.h"
#include "platform/FaultyVolumeFiles.h"
#include "platform/HardwareRegistry.h"
#include "platform/Host.h"
#include "platform/NullDevices.h"
#include "platform/Places.h"
#include "platform/VolumeEvents.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "platform/simulator/SimulatedMachine.h"

#include <map>
#include <set>
#include <string>

namespace orvana
{
class MainQueue;
}

namespace orvana::platform::simulator
{

/// A host whose machine is simulated. Used on the main thread, but for its files.
class SimulatorHost final : public Host
{
public:
    /// With a queue, changes are looked for ten times a second and told on it. The desktop is no part of the
    /// machine: it is whose the caller says.
    SimulatorHost(std::unique_ptr<SimulatedMachine> machine, MainQueue *queue,
                  std::unique_ptr<Workspace> workspace = std::make_unique<NullWorkspace>());
    ~SimulatorHost() override;
    SimulatorHost(const SimulatorHost &) = delete;
    SimulatorHost &operator=(const SimulatorHost &) = delete;

    SimulatedMachine &machine() { return *m_machine; }

    /// Takes up what was changed from outside, and tells what is different since it was last called.
    void lookForChanges();

    Account &account() override;
    Places &places() override;
    VolumeFiles &volumeFiles() override { return m_files; }
    HardwareRegistry &registry() override;
    VolumeEvents &volumeEvents() override;
    CommandLauncher &launcher() override;
    Workspace &workspace() override { return *m_workspace; }

private:
    class SimulatedAccount;
    class SimulatedPlaces;
    class SimulatedRegistry;
    class SimulatedEvents;
    class SimulatedTools;

    void setUpVolumes();
    void retireDetachedVolumes();
    void lookAgainLater();

    std::unique_ptr<SimulatedMachine> m_machine;
    MainQueue *m_queue;
    posix::PosixVolumeFiles m_realFiles;
    FaultyVolumeFiles m_files{m_realFiles};
    std::map<std::string, std::string>
        m_points; // where each volume, by its place in the file, was last mounted
    std::unique_ptr<SimulatedAccount> m_account;
    std::unique_ptr<SimulatedPlaces> m_places;
    std::unique_ptr<SimulatedRegistry> m_registry;
    std::unique_ptr<SimulatedEvents> m_events;
    std::unique_ptr<SimulatedTools> m_launcher;
    std::unique_ptr<Workspace> m_workspace;
    std::shared_ptr<SimulatorHost *> m_self; // what waits on the queue finds the host by it, or nothing
};

} // namespace orvana::platform::simulator

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
#include "platform/simulator/SimulatedHealth.h"
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

class SimulatedSetup;

/// A host whose machine is simulated. Main thread only, except for its files.
class SimulatorHost final : public Host
{
public:
    /// With a queue, the host looks for changes ten times a second and reports them on the queue. The desktop
    /// is not part of the machine: the caller chooses the workspace.
    SimulatorHost(std::unique_ptr<SimulatedMachine> machine, MainQueue *queue,
                  std::unique_ptr<Workspace> workspace = std::make_unique<NullWorkspace>());
    ~SimulatorHost() override;
    SimulatorHost(const SimulatorHost &) = delete;
    SimulatorHost &operator=(const SimulatorHost &) = delete;

    SimulatedMachine &machine() { return *m_machine; }

    /// Reads changes that were made from outside, and reports what has changed since the last call.
    void lookForChanges();

    Account &account() override;
    Places &places() override;
    VolumeFiles &volumeFiles() override { return m_files; }
    HardwareRegistry &registry() override;
    VolumeEvents &volumeEvents() override;
    CommandLauncher &launcher() override;
    Workspace &workspace() override { return *m_workspace; }
    enclosures::EnclosureSetup &enclosureSetup() override;
    HealthReader &health() override { return m_health; }

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
    // The last mount point of each volume, by the volume's place in the file.
    std::map<std::string, std::string> m_points;
    std::unique_ptr<SimulatedAccount> m_account;
    std::unique_ptr<SimulatedPlaces> m_places;
    std::unique_ptr<SimulatedRegistry> m_registry;
    std::unique_ptr<SimulatedEvents> m_events;
    std::unique_ptr<SimulatedTools> m_launcher;
    std::unique_ptr<SimulatedSetup> m_setup;
    SimulatedHealth m_health{*m_machine};
    std::unique_ptr<Workspace> m_workspace;
    std::shared_ptr<SimulatorHost *> m_self; // waiting work finds the host through it, or null
};

} // namespace orvana::platform::simulator

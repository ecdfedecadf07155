#pragma once

#include "platform/Host.h"
#include "platform/Workspace.h"
#include "platform/linux/LinuxEnclosureSetup.h"
#include "platform/linux/LinuxHealth.h"
#include "platform/linux/LinuxLauncher.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxVolumes.h"
#include "platform/posix/PosixAccount.h"
#include "platform/posix/PosixVolumeFiles.h"

#include <filesystem>

namespace orvana::platform::linux_host
{

/// Returns where the disk utility of `program` lies: in the libexec folder of an installed program, beside a
/// program that was built and not installed.
std::string diskUtilityOf(const std::filesystem::path &program);

/// The Linux machine that the program runs on. Main thread only, except for its files.
class LinuxHost final : public Host
{
public:
    /// With a queue, which must outlive the host, changes are reported on the queue. With null nothing is
    /// watched.
    LinuxHost(std::unique_ptr<Workspace> workspace, MainQueue *queue, const SystemFiles &files = {},
              const SetupPrograms &programs = {});

    /// Passes an event of the machine to the registry and to the volume events.
    void take(const MachineEvent &event);

    Account &account() override { return m_account; }
    Places &places() override { return m_places; }
    VolumeFiles &volumeFiles() override { return m_files; }
    HardwareRegistry &registry() override { return m_registry; }
    VolumeEvents &volumeEvents() override { return m_events; }
    CommandLauncher &launcher() override { return m_launcher; }
    Workspace &workspace() override { return *m_workspace; }
    enclosures::EnclosureSetup &enclosureSetup() override { return m_enclosureSetup; }
    HealthReader &health() override { return m_health; }

private:
    LinuxMachine m_machine;
    posix::PosixAccount m_account;
    posix::PosixVolumeFiles m_files;
    LinuxPlaces m_places{m_machine};
    LinuxRegistry m_registry{m_machine};
    LinuxVolumeEvents m_events{m_machine};
    LinuxLauncher m_launcher;
    LinuxEnclosureSetup m_enclosureSetup;
    LinuxHealth m_health{m_machine};
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<MachineWatch> m_watch; // last member: its events need all the others
};

} // namespace orvana::platform::linux_host

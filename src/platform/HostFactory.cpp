#include "platform/HostFactory.h"

#include "platform/NullDevices.h"
#include "platform/posix/PosixAccount.h"
#include "platform/posix/PosixCommandLauncher.h"
#include "platform/posix/PosixPlaces.h"
#include "platform/posix/PosixVolumeFiles.h"
#include "platform/simulator/DemoMachine.h"
#include "platform/simulator/SimulatorHost.h"

namespace orvana::platform
{

namespace
{

/// Files, user and programs of this machine. Its devices are not looked at.
class MachineHost final : public Host
{
public:
    Account &account() override { return m_account; }
    Places &places() override { return m_places; }
    VolumeFiles &volumeFiles() override { return m_files; }
    HardwareRegistry &registry() override { return m_registry; }
    VolumeEvents &volumeEvents() override { return m_events; }
    CommandLauncher &launcher() override { return m_launcher; }
    Workspace &workspace() override { return m_workspace; }

private:
    posix::PosixAccount m_account;
    posix::PosixPlaces m_places;
    posix::PosixVolumeFiles m_files;
    posix::PosixCommandLauncher m_launcher;
    NullRegistry m_registry;
    NullVolumeEvents m_events;
    NullWorkspace m_workspace;
};

} // namespace

std::unique_ptr<Host> makeMachineHost()
{
    return std::make_unique<MachineHost>();
}

tl::expected<std::unique_ptr<Host>, std::string> makeSimulatorHost(const std::string &file, MainQueue *queue)
{
    auto machine = simulator::SimulatedMachine::open(file);
    if (!machine)
        return tl::unexpected(machine.error());
    return std::make_unique<simulator::SimulatorHost>(std::move(*machine), queue);
}

tl::expected<void, std::string> moveSimulatorLever(const std::string &file, const std::string &lever,
                                                   const std::string &target, const std::string &newName)
{
    const auto machine = simulator::SimulatedMachine::open(file);
    if (!machine)
        return tl::unexpected(machine.error());
    if (lever == "attach" || lever == "detach")
        return (*machine)->setAttached(target, lever == "attach");
    if (lever == "mount" || lever == "unmount")
        return (*machine)->setMounted(target, lever == "mount");
    if (lever == "rename")
        return (*machine)->renameVolume(target, newName);
    return tl::unexpected("\"" + lever + "\" is no lever");
}

tl::expected<std::string, std::string> simulatorText(const std::string &file)
{
    const auto machine = simulator::SimulatedMachine::open(file);
    if (!machine)
        return tl::unexpected(machine.error());
    return (*machine)->text();
}

tl::expected<std::string, std::string> prepareDemo(const std::string &folder)
{
    return simulator::writeDemo(folder);
}

} // namespace orvana::platform

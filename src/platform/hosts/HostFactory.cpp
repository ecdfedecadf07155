#include "platform/hosts/HostFactory.h"

#include "platform/linux/DesktopWorkspace.h"
#include "platform/simulator/DemoMachine.h"
#include "platform/simulator/SimulatorHost.h"

namespace orvana::platform
{

tl::expected<std::unique_ptr<Host>, std::string> makeSimulatorHost(const std::string &file, MainQueue *queue,
                                                                   Desktop desktop)
{
    auto machine = simulator::SimulatedMachine::open(file);
    if (!machine)
        return tl::unexpected(machine.error());
    if (desktop == Desktop::None)
        return std::make_unique<simulator::SimulatorHost>(std::move(*machine), queue);
    return std::make_unique<simulator::SimulatorHost>(std::move(*machine), queue,
                                                      std::make_unique<linux_host::DesktopWorkspace>());
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

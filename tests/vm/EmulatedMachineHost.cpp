// Makes the terminal program's host on the virtual machine.

#include "EmulatedEnclosure.h"
#include "platform/NullDevices.h"
#include "platform/hosts/HostFactory.h"
#include "platform/linux/LinuxHost.h"

namespace orvana::platform
{

std::unique_ptr<Host> makeMachineHost(MainQueue *queue)
{
    linux_host::SystemFiles files;
    files.devices = test::readEmulatedEnclosure;
    return std::make_unique<linux_host::LinuxHost>(std::make_unique<NullWorkspace>(), queue, files);
}

} // namespace orvana::platform

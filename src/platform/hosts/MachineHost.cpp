#include "platform/hosts/HostFactory.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/LinuxHost.h"

namespace orvana::platform
{

std::unique_ptr<Host> makeMachineHost(MainQueue *queue)
{
    return std::make_unique<linux_host::LinuxHost>(std::make_unique<linux_host::DesktopWorkspace>(), queue);
}

} // namespace orvana::platform

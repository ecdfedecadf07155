// Prints the registry path and the serial number of every disk with a driver, one a line.

#include "platform/HardwareRegistry.h"
#include "platform/Host.h"
#include "platform/HostFactory.h"

#include <iostream>

int main()
{
    using namespace orvana::platform;
    const auto host = makeMachineHost();
    const auto drivers = host->registry().match(RegistryMatching{"AppleAHCIDiskDriver", {}});
    for (const auto &driver : drivers.entries)
        std::cout << driver->path() << ' '
                  << valueOf<std::string>(driver->properties(), "Serial Number").value_or("-") << '\n';
    return drivers.status;
}

// Prints what the disk service says of a disk: health-look NAME SERIAL

#include "platform/linux/LinuxHealth.h"

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    orvana::platform::DiskHealth health;
    orvana::platform::linux_host::addServiceFacts(health, argv[1], argv[2]);
    std::puts(textOf(health).c_str());
    return 0;
}

// The disk utility with its own rules, on the virtual machine.

#include "EmulatedEnclosure.h"
#include "diskutil/Program.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    using namespace orvana;
    const QCoreApplication application(argc, argv);
    platform::linux_host::SystemFiles files;
    files.devices = test::readEmulatedEnclosure;
    files.thunderbolt =
        "/sys/bus/pci/devices"; // the emulated machine has a switch in the place of Thunderbolt
    diskutil::leave(diskutil::runProgram({argv + 1, argv + argc}, diskutil::knownDisk, files));
}

#include "diskutil/Program.h"

#include "diskutil/DiskOperations.h"
#include "diskutil/MountableTypes.h"
#include "diskutil/UdisksService.h"
#include "diskutil/VolumeUsers.h"

#include "duplicate/disktool/VolumeName.h"
#include "foundation/DisplayPath.h"
#include "platform/posix/Descriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>

namespace orvana::diskutil
{

namespace
{

Outcome<void> writeOut(const std::string &point)
{
    const platform::posix::Descriptor folder(
        ::open(point.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
    // A user who may not open the folder may still unmount it, and unmounting writes the data, too.
    if (!folder.isOpen() || ::syncfs(folder.number()) == 0)
        return {};
    return trouble(SomethingFailed, displayPath(point) + ": " + std::generic_category().message(errno));
}

bool isMountableHere(const std::string &type)
{
    struct utsname kernel{};
    return ::uname(&kernel) == 0 && canBeMounted(type, static_cast<const char *>(kernel.release));
}

// udev asks this about new disks that it has not finished examining. In the maker's enclosures `isExamined`
// is not required for an answer. At the ports of a definition there may be disks that the system's tables
// name, and that shows only in what udev finds on them; so udev is told to ask again. A disk in a bay that
// the system works with stays the system's own.
Outcome<std::string> isInBay(const std::string &node, const std::optional<DiskFacts> &facts)
{
    if (!facts)
        return trouble(NotThere, displayPath(node) + ": there is no such disk");
    if (!facts->isInBay)
        return trouble(Refused, displayPath(node) + " is in no bay of an enclosure");
    const auto free = facts->isInDefinedBay ? checkMountable(node, *facts) : checkEjectable(node, *facts);
    if (!free)
        return tl::unexpected(free.error());
    if (facts->isInDefinedBay && !facts->isExamined)
        return displayPath(node) + " is to be examined first";
    return displayPath(node) + " is in a bay of an enclosure";
}

// udev asks about every disk. On a machine without any enclosure the answer needs no look at its devices.
bool canHaveBays(const platform::linux_host::SystemFiles &files)
{
    return !platform::linux_host::namesIn(files.thunderbolt).empty() ||
           !files.definitions().definitions.empty();
}

Outcome<std::string> perform(const Request &request, const BayRule &rule,
                             const platform::linux_host::SystemFiles &files)
{
    const auto lookAt = [&](const std::string &node) {
        return factsOf(platform::linux_host::readSystemState(files), node, rule);
    };
    if (request.verb == Verb::IsInBay && !canHaveBays(files))
        return trouble(Refused, displayPath(request.node) + " is in no bay of an enclosure");
    if (request.verb == Verb::IsInBay)
        return isInBay(request.node, lookAt(request.node));
    UdisksService service;
    const Surroundings surroundings{lookAt,   service,         usersOf,
                                    writeOut, isMountableHere, eraseFormatSetting()};
    if (request.verb == Verb::MountDisk)
        return mountDisk(request, surroundings);
    return request.verb == Verb::EraseDisk ? eraseDisk(request, surroundings)
                                           : ejectDisk(request, surroundings);
}

} // namespace

int runProgram(const std::vector<std::string> &words, const BayRule &rule,
               const platform::linux_host::SystemFiles &files)
{
    if (words == std::vector<std::string>{"--version"}) {
        std::cout << "orvana-diskutil " PLURIMO_VERSION "\n";
        return AllDone;
    }
    const auto done =
        readRequest(words).and_then([&](const Request &request) { return perform(request, rule, files); });
    if (done) {
        std::cout << *done << '\n';
        return AllDone;
    }
    std::cerr << "orvana-diskutil: " << done.error().reason << '\n';
    return done.error().status;
}

void leave(int status)
{
    std::cout.flush();
    std::cerr.flush();
    std::_Exit(status);
}

} // namespace orvana::diskutil

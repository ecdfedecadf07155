#include "platform/posix/NewEntry.h"

#include "platform/posix/FinderInfo.h"

#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace orvana::platform::posix
{

namespace
{

constexpr unsigned SetIdBits = S_ISUID | S_ISGID;

// A call of umask(2) would change the mask for a moment, in every thread of the process.
unsigned umaskOfProcess()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        unsigned mask = 0;
        if (word == "Umask:" && status >> std::oct >> mask)
            return mask;
    }
    return 022;
}

bool setOwner(int descriptor, const Attributes &like, const ProcessDefaults &defaults)
{
    if (like.owner == defaults.owner && like.group == defaults.group)
        return true;
    if (::fchown(descriptor, like.owner, like.group) == 0)
        return true;
    // An ordinary user may at least give a file to a group that they belong to.
    const int groupOnly = ::fchown(descriptor, Attributes::Unknown, like.group);
    return groupOnly == 0 && like.owner == defaults.owner;
}

} // namespace

ProcessDefaults ProcessDefaults::ofThisProcess()
{
    return {umaskOfProcess(), ::geteuid(), ::getegid()};
}

unsigned newFileMode(const Attributes &like, const ProcessDefaults &defaults)
{
    return like.permissions.value_or(0666U & ~defaults.umask);
}

unsigned newFolderMode(const Attributes &like, const ProcessDefaults &defaults)
{
    return withSearch(like.permissions.value_or(0777U & ~defaults.umask));
}

void applyAttributes(int descriptor, const Attributes &like, unsigned mode, const ProcessDefaults &defaults)
{
    if (!setOwner(descriptor, like, defaults))
        mode &= ~SetIdBits;
    // The entry was created with the permissions that the process's mask lets through. A change of owner may
    // have removed set-id bits.
    if ((mode & defaults.umask) != 0 || (mode & 07000U) != 0)
        ::fchmod(descriptor, mode);
    if (like.hiddenExtension)
        setHiddenExtension(descriptor);
}

} // namespace orvana::platform::posix

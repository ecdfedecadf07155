#include "baywriter/BayWriter.h"
#include "enclosures/DefinitionFolder.h"

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

// Has udev look at all disks again. Without udev nothing needs to know.
void triggerUdev()
{
    const char *words[] = {"udevadm", "trigger", "--action=change", "--subsystem-match=block", nullptr};
    char *environment[] = {nullptr};
    pid_t child = -1;
    if (::posix_spawn(&child, "/usr/bin/udevadm", nullptr, nullptr, const_cast<char **>(words),
                      environment) == 0)
        ::waitpid(child, nullptr, 0);
}

} // namespace

int main(int argc, char **argv)
{
    ::umask(022);
    return orvana::baywriter::runProgram({argv + 1, argv + argc}, orvana::enclosures::SystemFolder,
                                         triggerUdev);
}

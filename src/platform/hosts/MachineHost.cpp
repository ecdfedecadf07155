#include "foundation/Paths.h"
#include "platform/hosts/HostFactory.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/LinuxHost.h"

#include <cstdlib>
#include <filesystem>

namespace orvana::platform
{

namespace
{

bool isInstalled()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error || isAtOrBelow(program.native(), "/usr") || isAtOrBelow(program.native(), "/opt");
}

// Tests of programs that are not installed have definitions of their own. What is installed never looks
// there.
linux_host::SystemFiles filesOfMachine()
{
    linux_host::SystemFiles files;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the environment is never changed
    const char *folder = std::getenv("ORVANA_ENCLOSURES");
    if (folder && *folder == '/' && !isInstalled()) {
        files.definitionFolder = folder;
        files.trust = enclosures::Trust::RootOrUser;
    }
    return files;
}

} // namespace

std::unique_ptr<Host> makeMachineHost(MainQueue *queue)
{
    return std::make_unique<linux_host::LinuxHost>(std::make_unique<linux_host::DesktopWorkspace>(), queue,
                                                   filesOfMachine(),
                                                   linux_host::SetupPrograms{.helper = ORVANA_BAYS_PROGRAM});
}

} // namespace orvana::platform

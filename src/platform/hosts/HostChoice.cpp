#include "platform/hosts/HostChoice.h"

#include "foundation/DisplayPath.h"
#include "platform/hosts/HostFactory.h"
#include "platform/posix/PrivateFolder.h"

#include <filesystem>

namespace orvana::platform
{

tl::expected<std::string, Refusal> simulatorFileOf(const HostChoice &choice)
{
    if (choice.simulatorFile)
        return std::filesystem::absolute(*choice.simulatorFile).native();
    if (!choice.demo && !choice.demoFolder)
        return tl::unexpected(
            Refusal{WrongUsage, "name a simulated machine with --simulator FILE, or --demo"});
    auto file = prepareDemo(choice.demoFolder ? std::filesystem::absolute(*choice.demoFolder).native()
                                              : cacheFolder() + "/demo");
    if (!file)
        return tl::unexpected(Refusal{NotThere, file.error()});
    return *file;
}

tl::expected<std::unique_ptr<Host>, Refusal> makeHost(const HostChoice &choice, MainQueue *queue,
                                                      Desktop desktop)
{
    if (!choice.simulatorFile && !choice.demo && !choice.demoFolder)
        return makeMachineHost(queue);
    const auto file = simulatorFileOf(choice);
    if (!file)
        return tl::unexpected(file.error());
    auto host = makeSimulatorHost(*file, queue, desktop);
    if (!host)
        return tl::unexpected(Refusal{NotThere, host.error()});
    return std::move(*host);
}

std::optional<Refusal> makeLogFolder(const std::optional<std::string> &named)
{
    std::error_code error;
    if (named)
        std::filesystem::create_directories(std::filesystem::absolute(*named), error);
    if (!error)
        return std::nullopt;
    return Refusal{NotThere,
                   "the folder for logs, " + displayPath(*named) + ", cannot be made: " + error.message()};
}

} // namespace orvana::platform

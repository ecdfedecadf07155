#include "cli/HostChoice.h"

#include "foundation/DisplayPath.h"
#include "platform/HostFactory.h"
#include "platform/PrivateFolder.h"

#include <filesystem>

namespace orvana::cli
{

tl::expected<std::string, Refusal> simulatorFileOf(const HostChoice &choice)
{
    if (choice.simulatorFile)
        return std::filesystem::absolute(*choice.simulatorFile).native();
    if (!choice.demo && !choice.demoFolder)
        return tl::unexpected(
            Refusal{WrongUsage, "name a simulated machine with --simulator FILE, or --demo"});
    auto file =
        platform::prepareDemo(choice.demoFolder ? std::filesystem::absolute(*choice.demoFolder).native()
                                                : platform::cacheFolder() + "/demo");
    if (!file)
        return tl::unexpected(Refusal{NotThere, file.error()});
    return *file;
}

tl::expected<std::unique_ptr<platform::Host>, Refusal> makeHost(const HostChoice &choice, MainQueue *queue,
                                                                platform::Desktop desktop)
{
    if (!choice.simulatorFile && !choice.demo && !choice.demoFolder)
        return platform::makeMachineHost(queue);
    const auto file = simulatorFileOf(choice);
    if (!file)
        return tl::unexpected(file.error());
    auto host = platform::makeSimulatorHost(*file, queue, desktop);
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

} // namespace orvana::cli

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "foundation/Refusal.h"

#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana::platform
{
class Host;
}

namespace orvana::cli
{

/// What the user of `plurimoctl copy` said.
struct CopyOptions
{
    std::vector<std::string> sources;
    std::vector<std::string> destinations;
    std::optional<std::string> root;
    std::optional<std::string> logFolder;
    bool verify = false;
    bool json = false;
};

/// The path, absolute and without ".", ".." and doubled slashes, by its text alone. An empty one stays so,
/// and a relative one when there is no working folder.
std::string cleanPath(const std::string &path);

/// The job that the options ask for, or why there is none. Reads only.
tl::expected<CopyJob, Refusal> planCopy(platform::Host &host, const CopyOptions &options);

} // namespace orvana::cli

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/plan/RunSettings.h"
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

/// The options of `plurimoctl copy`.
struct CopyOptions
{
    std::vector<std::string> sources;
    std::vector<std::string> destinations;
    std::optional<std::string> root;
    std::optional<std::string> logFolder;
    bool verify = false;
    RunSettings settings; ///< only those of `AllListedRunSettings`
    bool json = false;
};

/// Returns the path, absolute and without ".", ".." and doubled slashes. Uses only its text. An empty path
/// stays empty, and a relative path stays relative if there is no working folder.
std::string cleanPath(const std::string &path);

/// Returns the job that the options ask for, or the reason why there is none. Reads only.
tl::expected<CopyJob, Refusal> planCopy(platform::Host &host, const CopyOptions &options);

} // namespace orvana::cli

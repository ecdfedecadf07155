#pragma once

#include <filesystem>
#include <string>

namespace orvana::diskutil
{

/// True if volumes of the type ("exfat") can be mounted here: the kernel has it, there is a module for it, or
/// there is a mount program for it. `root` is the root folder of the system, `release` the release of the
/// kernel.
bool canBeMounted(const std::string &type, const std::string &release,
                  const std::filesystem::path &root = "/");

} // namespace orvana::diskutil

#pragma once

#include <filesystem>
#include <string>

namespace orvana::diskutil
{

/// Whether volumes of the type ("exfat") can be mounted here: the kernel has it, or a module of it, or there
/// is a program for it. `root` is the folder of the whole system, `release` the kernel's.
bool canBeMounted(const std::string &type, const std::string &release,
                  const std::filesystem::path &root = "/");

} // namespace orvana::diskutil

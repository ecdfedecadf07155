#include "diskutil/MountableTypes.h"

#include <fstream>

namespace orvana::diskutil
{

namespace
{

namespace fs = std::filesystem;

// Lines look like "nodev\tproc" or "\text4".
bool isKnownToKernel(const std::string &type, const fs::path &root)
{
    std::ifstream table(root / "proc/filesystems");
    for (std::string line; std::getline(table, line);) {
        if (line.substr(line.rfind('\t') + 1) == type)
            return true;
    }
    return false;
}

// Lines look like "alias fs-exfat exfat".
bool isModule(const std::string &type, const std::string &release, const fs::path &root)
{
    std::ifstream aliases(root / "lib/modules" / release / "modules.alias");
    const auto wanted = "alias fs-" + type + " ";
    for (std::string line; std::getline(aliases, line);) {
        if (line.starts_with(wanted))
            return true;
    }
    return false;
}

} // namespace

bool canBeMounted(const std::string &type, const std::string &release, const fs::path &root)
{
    std::error_code error;
    return isKnownToKernel(type, root) || isModule(type, release, root) ||
           fs::exists(root / "sbin" / ("mount." + type), error);
}

} // namespace orvana::diskutil

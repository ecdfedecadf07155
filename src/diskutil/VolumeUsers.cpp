#include "diskutil/VolumeUsers.h"

#include "foundation/DisplayPath.h"
#include "platform/linux/DeviceList.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace orvana::diskutil
{

namespace
{

namespace fs = std::filesystem;

// Only reads the target of the link. Following the link could wait for ever for a file system that does not
// answer.
bool leadsTo(const fs::path &link, const std::string &point)
{
    std::error_code error;
    const auto target = fs::read_symlink(link, error).native();
    return target == point || platform::linux_host::isBelow(target, point);
}

bool uses(const fs::path &process, const std::string &point)
{
    for (const char *place : {"cwd", "root", "exe"}) {
        if (leadsTo(process / place, point))
            return true;
    }
    const auto files = platform::linux_host::namesIn(process / "fd");
    return std::any_of(files.begin(), files.end(),
                       [&](const std::string &file) { return leadsTo(process / "fd" / file, point); });
}

// A loop device may use a file of the volume as its image. No process has that file open.
void addImages(const std::string &point, std::vector<std::string> &found)
{
    for (const auto &block : platform::linux_host::namesIn("/sys/block")) {
        std::string image;
        std::getline(std::ifstream(fs::path("/sys/block") / block / "loop/backing_file"), image);
        if (!platform::linux_host::isBelow(image, point))
            continue;
        auto &text = found.emplace_back(displayPath(image.substr(image.rfind('/') + 1)));
        text.append(" (").append(block).append(")");
    }
}

} // namespace

std::vector<std::string> usersOf(const std::string &point)
{
    std::vector<std::string> found;
    for (const auto &number : platform::linux_host::namesIn("/proc")) {
        const bool isProcess = number.find_first_not_of("0123456789") == std::string::npos;
        const auto process = fs::path("/proc") / number;
        if (!isProcess || !uses(process, point))
            continue;
        std::string name;
        std::getline(std::ifstream(process / "comm"), name);
        auto &text = found.emplace_back(displayPath(name));
        text.append(" (").append(number).append(")");
    }
    addImages(point, found);
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace orvana::diskutil

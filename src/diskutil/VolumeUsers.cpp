#include "diskutil/VolumeUsers.h"

#include "foundation/DisplayPath.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace orvana::diskutil
{

namespace
{

namespace fs = std::filesystem;

bool liesOn(const fs::path &path, dev_t device)
{
    struct stat found{};
    return ::stat(path.c_str(), &found) == 0 && found.st_dev == device;
}

bool uses(const fs::path &process, dev_t device)
{
    for (const char *place : {"cwd", "root", "exe"}) {
        if (liesOn(process / place, device))
            return true;
    }
    std::error_code error;
    for (fs::directory_iterator file(process / "fd", error), end; !error && file != end;
         file.increment(error)) {
        if (liesOn(file->path(), device))
            return true;
    }
    return false;
}

// A file of the volume may be a loop device's, which no process has open.
void addImages(dev_t device, std::vector<std::string> &found)
{
    std::error_code error;
    for (fs::directory_iterator block("/sys/block", error), end; !error && block != end;
         block.increment(error)) {
        std::string image;
        if (!std::getline(std::ifstream(block->path() / "loop/backing_file"), image) ||
            !liesOn(image, device))
            continue;
        auto &text = found.emplace_back(displayPath(fs::path(image).filename().native()));
        text.append(" (").append(block->path().filename().native()).append(")");
    }
}

} // namespace

std::vector<std::string> usersOf(const std::string &point)
{
    std::vector<std::string> found;
    struct stat volume{};
    if (::stat(point.c_str(), &volume) != 0)
        return found;
    std::error_code error;
    for (fs::directory_iterator process("/proc", error), end; !error && process != end;
         process.increment(error)) {
        const auto number = process->path().filename().native();
        const bool isProcess = number.find_first_not_of("0123456789") == std::string::npos;
        if (!isProcess || !uses(process->path(), volume.st_dev))
            continue;
        std::string name;
        std::getline(std::ifstream(process->path() / "comm"), name);
        auto &text = found.emplace_back(displayPath(name));
        text.append(" (").append(number).append(")");
    }
    addImages(volume.st_dev, found);
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace orvana::diskutil

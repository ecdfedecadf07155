#include "platform/simulator/ImageDisk.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/posix/PosixCommandLauncher.h"

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace orvana::platform::simulator
{

namespace
{

CommandLauncher::Result runTool(const std::string &path, const std::vector<std::string> &arguments)
{
    return posix::PosixCommandLauncher().run(path, arguments);
}

std::string firstWord(const std::string &output)
{
    return output.substr(0, output.find_first_of(":\n"));
}

} // namespace

ImageDisk::ImageDisk(std::string image, std::uint64_t size) : m_image(std::move(image)), m_size(size) {}

// Whatever else a path names, a block device above all, is never touched.
bool ImageDisk::isUsable() const
{
    std::error_code error;
    const auto status = fs::symlink_status(m_image, error);
    if (fs::is_regular_file(status))
        return true;
    if (fs::exists(status))
        return false;
    std::ofstream file(m_image, std::ios::binary);
    file.close();
    fs::resize_file(m_image, m_size, error);
    return !error;
}

std::string ImageDisk::loopDevice() const
{
    return firstWord(runTool("/sbin/losetup", {"-j", m_image}).output);
}

bool ImageDisk::mount(const std::string &folder, const std::string &label) const
{
    const auto refuse = [this](const char *why) {
        systemLog(displayPath(m_image) + ": " + why);
        return false;
    };
    if (!isUsable())
        return refuse("not a regular file; no other device is used");
    auto device = loopDevice();
    if (device.empty())
        device = firstWord(runTool("/sbin/losetup", {"-f", "--show", m_image}).output);
    if (device.empty())
        return refuse("cannot be attached to a loop device");
    const bool hasFileSystem = runTool("/sbin/blkid", {"-p", device}).status == 0;
    // A label over the format's 16 bytes is refused by the tool, never shortened.
    if (!hasFileSystem && runTool("/sbin/mkfs.ext4", {"-q", "-L", label, device}).status != 0)
        return refuse("cannot be formatted");
    fs::create_directories(folder);
    return runTool("/bin/mount", {device, folder}).status == 0 || refuse("cannot be mounted");
}

void ImageDisk::unmount(const std::string &folder) const
{
    runTool("/bin/umount", {folder});
    if (const auto device = loopDevice(); !device.empty())
        runTool("/sbin/losetup", {"-d", device});
    std::error_code error;
    fs::remove(folder, error);
}

void ImageDisk::wipe() const
{
    std::error_code error;
    if (!isUsable())
        return;
    fs::resize_file(m_image, 0, error);
    fs::resize_file(m_image, m_size, error);
}

} // namespace orvana::platform::simulator

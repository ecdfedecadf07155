#include "platform/simulator/ImageDisk.h"

#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/PosixCommandLauncher.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace orvana::platform::simulator
{

namespace
{

CommandLauncher::Result runTool(const std::string &path, const std::vector<std::string> &arguments)
{
    return posix::PosixCommandLauncher().run(path, arguments);
}

// Returns a text that identifies the file, or an empty text when the path is no regular file.
std::string identityOf(const std::string &path)
{
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

std::string firstWord(const std::string &output)
{
    return output.substr(0, output.find_first_of(":\n"));
}

} // namespace

ImageDisk::ImageDisk(std::string image, std::uint64_t size, std::string mark)
    : m_image(std::move(image)), m_size(size), m_mark(std::move(mark))
{
}

// Returns false when the image cannot be made, or when another file exists there that the simulator did not
// make.
bool ImageDisk::makeIfMissing() const
{
    const posix::Descriptor file(
        ::open(m_image.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!file.isOpen())
        return isOwn();
    if (::ftruncate(file.number(), static_cast<off_t>(m_size)) != 0)
        return false;
    std::ofstream(m_mark) << identityOf(m_image) << '\n';
    return isOwn();
}

// True for an image that the simulator made. Any other file, above all a block device, is never touched.
bool ImageDisk::isOwn() const
{
    std::string marked;
    std::getline(std::ifstream(m_mark), marked);
    return !marked.empty() && marked == identityOf(m_image);
}

bool ImageDisk::isEmpty() const
{
    struct stat status{};
    return ::lstat(m_image.c_str(), &status) == 0 && status.st_blocks == 0;
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
    if (!makeIfMissing())
        return refuse("not an image that the simulator made; nothing else is used");
    const bool isBlank = isEmpty();
    auto device = loopDevice();
    if (device.empty())
        device = firstWord(runTool("/sbin/losetup", {"-f", "--show", m_image}).output);
    if (device.empty())
        return refuse("cannot be attached to a loop device");
    // The tool refuses a label of more than 16 bytes, the limit of the format. It never shortens a label.
    if (isBlank && runTool("/sbin/mkfs.ext4", {"-q", "-L", label, device}).status != 0)
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
    if (!isOwn())
        return;
    fs::resize_file(m_image, 0, error);
    fs::resize_file(m_image, m_size, error);
}

} // namespace orvana::platform::simulator

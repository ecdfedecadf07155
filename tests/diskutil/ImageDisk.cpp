#include "ImageDisk.h"

#include <array>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

Said shell(const std::string &command)
{
    Said said;
    std::FILE *pipe = ::popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "re");
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        said.text += buffer.data();
    const int status = ::pclose(pipe);
    said.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    while (said.text.ends_with('\n'))
        said.text.pop_back();
    return said;
}

std::string must(const std::string &command)
{
    auto said = shell(command);
    if (said.status != 0)
        throw std::runtime_error(command + ": " + said.text);
    return said.text;
}

std::string asWord(const std::string &word)
{
    std::string text = "'";
    for (const char c : word)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

std::string littleEndian(std::uint64_t number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> (8 * i) & 0xFFU);
    return text;
}

// The sum that protects the label of a volume group's member: CRC-32 with a start of its own, not inverted.
std::uint32_t labelSum(const std::string &bytes)
{
    std::uint32_t sum = 0xf597a6cfU;
    for (const char c : bytes) {
        sum ^= static_cast<std::uint8_t>(c);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1U) != 0 ? sum >> 1U ^ 0xedb88320U : sum >> 1U;
    }
    return sum;
}

// Runs `body` in a child and returns when it has closed its end of the pipe, or become another program.
template <class Body>
pid_t startChild(Body body)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        body(ends[1]);
        ::_exit(1);
    }
    ::close(ends[1]);
    char byte = 0;
    while (::read(ends[0], &byte, 1) > 0) {
    }
    ::close(ends[0]);
    return child;
}

} // namespace

bool hasPrivateSystem()
{
    return std::getenv("ORVANA_PRIVATE_SYSTEM") != nullptr;
}

bool hasPlayedAuthority()
{
    return hasPrivateSystem() && std::getenv("ORVANA_PLAYED_POLKIT") != nullptr;
}

bool hasNoDiskService()
{
    return hasPrivateSystem() && std::getenv("ORVANA_NO_DISK_SERVICE") != nullptr;
}

void setAuthority(Authority answer)
{
    must("dbus-send --system --print-reply --dest=org.freedesktop.PolicyKit1 "
         "/org/freedesktop/PolicyKit1/Authority org.freedesktop.DBus.Mock.AllowUnknown boolean:" +
         std::string(answer == Authority::Allows ? "true" : "false"));
}

Said runDiskUtility(const std::vector<std::string> &words, const std::string &bays, const std::string &user)
{
    std::string command = "ORVANA_IMAGE_BAYS=" + asWord(bays);
    if (!user.empty())
        command += " setpriv --reuid=" + user + " --regid=nogroup --clear-groups";
    command += " " + asWord(IMAGE_DISK_UTILITY);
    for (const auto &word : words)
        command.append(" ").append(asWord(word));
    return shell(command);
}

Said runInstalledDiskUtility(const std::vector<std::string> &words)
{
    auto command = asWord(INSTALLED_DISK_UTILITY);
    for (const auto &word : words)
        command.append(" ").append(asWord(word));
    return shell(command);
}

ImageDisk::ImageDisk(const std::string &folder, std::string name, int megabytes)
    : m_name(std::move(name)), m_image(folder + "/" + m_name)
{
    must("truncate -s " + std::to_string(megabytes) + "M " + asWord(m_image));
    m_node = must("losetup -f --show " + asWord(m_image));
    examine();
}

ImageDisk::~ImageDisk()
{
    shell("umount -A " + partition() + " || umount -A -l " + partition());
    shell("partx -d " + m_node);
    if (const auto said = shell("losetup -d " + m_node); said.status != 0)
        ADD_FAILURE() << said.text;
}

void ImageDisk::makeVolume(const std::string &type, const std::string &label) const
{
    must("parted -s " + m_node + " mklabel gpt mkpart data 1MiB 100%");
    must("udevadm settle --timeout=30");
    must("mkfs." + type + " -q -L " + asWord(label) + " " + partition());
    examine();
}

void ImageDisk::mount(const std::string &place) const
{
    must("mount -o noatime " + partition() + " " + asWord(place));
}

void ImageDisk::unmount() const
{
    must("umount " + partition());
}

std::string ImageDisk::mountPoint() const
{
    const auto lines = shell("findmnt -n -o TARGET -S " + partition()).text;
    return lines.substr(0, lines.find('\n'));
}

std::string ImageDisk::owner() const
{
    return must("stat -c %U " + asWord(mountPoint()));
}

std::string ImageDisk::label() const
{
    return must("blkid -p -o value -s LABEL " + partition());
}

void ImageDisk::attachAgain() const
{
    shell("partx -d " + m_node);
    must("losetup -d " + m_node);
    must("losetup " + m_node + " " + asWord(m_image));
    examine();
}

// The start of a second-generation superblock: what members are known by.
void ImageDisk::plantRaidMember() const
{
    std::string block(256, '\0');
    block.replace(0, 4, littleEndian(0xa92b4efcU, 4));
    block.replace(4, 4, littleEndian(1, 4));
    block.replace(16, 16, std::string(16, 'u'));
    block.replace(144, 8, littleEndian(8, 8)); // its own place, in blocks
    write(4096, block);
    examine();
}

void ImageDisk::plantVolumeGroupMember() const
{
    std::string block(512, '\0');
    block.replace(0, 8, "LABELONE");
    block.replace(8, 8, littleEndian(1, 8));
    block.replace(20, 4, littleEndian(32, 4));
    block.replace(24, 8, "LVM2 001");
    block.replace(32, 32, std::string(32, 'u'));
    block.replace(16, 4, littleEndian(labelSum(block.substr(20)), 4));
    write(512, block);
    examine();
}

std::vector<std::string> ImageDisk::expectations() const
{
    const auto device = m_node.substr(m_node.rfind('/') + 1);
    return {"--expect-sequence=" + must("cat /sys/block/" + device + "/diskseq"), "--expect-serial=" + m_name,
            "--expect-size=" + must("blockdev --getsize64 " + m_node), "--expect-bay=bay of " + m_name};
}

std::string ImageDisk::digest() const
{
    return must("sync && sha256sum < " + m_node);
}

void ImageDisk::examine() const
{
    must("sync; for d in /sys/class/block/" + m_node.substr(m_node.rfind('/') + 1) +
         "*; do udevadm trigger --action=change $d; done; udevadm settle --timeout=30");
}

void ImageDisk::write(std::size_t offset, const std::string &bytes) const
{
    std::fstream disk(m_node, std::ios::in | std::ios::out | std::ios::binary);
    disk.seekp(static_cast<std::streamoff>(offset));
    disk << bytes << std::flush;
    if (!disk)
        throw std::runtime_error(m_node + " cannot be written");
}

ChildProcess::~ChildProcess()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
}

BusyProcess::BusyProcess(const std::string &folder)
{
    m_process = startChild([&](int) {
        if (::chdir(folder.c_str()) == 0)
            ::execlp("sleep", "sleep", "1000", nullptr);
    });
}

ForeignMount::ForeignMount(const std::string &node, const std::string &place)
{
    m_process = startChild([&](int end) {
        if (::unshare(CLONE_NEWNS) == 0 &&
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
            ::mount(node.c_str(), place.c_str(), "ext4", MS_NOATIME, nullptr) == 0) {
            ::close(end);
            ::pause();
        }
    });
}

Swap::Swap(const ImageDisk &disk) : m_node(disk.node())
{
    must("mkswap " + m_node);
    disk.examine();
    must("swapon " + m_node);
}

Swap::~Swap()
{
    if (const auto said = shell("swapoff " + m_node); said.status != 0)
        ADD_FAILURE() << said.text;
}

} // namespace orvana::test

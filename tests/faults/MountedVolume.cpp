#include "faults/MountedVolume.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace orvana::test
{

namespace
{

bool ownNamespace = false;

void must(const std::string &command)
{
    if (shell(command) != 0)
        throw std::runtime_error("failed: " + command);
}

} // namespace

int shell(const std::string &command)
{
    return std::system(command.c_str());
}

std::string outputOf(const std::string &command)
{
    std::string text;
    std::FILE *pipe = ::popen(command.c_str(), "r");
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        text += buffer.data();
    ::pclose(pipe);
    while (text.ends_with('\n'))
        text.pop_back();
    return text;
}

bool canMount()
{
    return ownNamespace;
}

void enterOwnMountNamespace()
{
    ownNamespace = ::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0 &&
                   ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

MountedVolume::MountedVolume(const std::string &type, int megabytes, const std::string &options)
    : m_type(type)
{
    m_tree.folder("mount");
    ::chmod(m_tree.root().c_str(), 0755);
    if (type == "tmpfs") {
        must("mount -t tmpfs -o mode=777,size=" + std::to_string(megabytes) + "m tmpfs " + root());
        return;
    }
    must("truncate -s " + std::to_string(megabytes) + "M " + image());
    m_device = outputOf("losetup -f --show " + image());
    if (m_device.empty())
        throw std::runtime_error("no loop device");
    must("mkfs." + type + (type == "exfat" ? " " : " -q ") + options + " " + m_device + " >/dev/null");
    mountAgain();
    ::chmod(root().c_str(), 0777);
}

MountedVolume::~MountedVolume()
{
    shell("umount -l " + root() + " 2>/dev/null");
    if (!m_device.empty() && shell("losetup -d " + m_device) != 0)
        ADD_FAILURE() << m_device << " could not be detached";
}

void MountedVolume::remountReadOnly() const
{
    must("mount -o remount,ro " + root());
}

void MountedVolume::unmountLazily() const
{
    must("umount -l " + root());
}

void MountedVolume::mountAgain() const
{
    must((m_type == "exfat" ? "mount.exfat-fuse " : "mount ") + m_device + " " + root());
}

void MountedVolume::shrinkDevice(int megabytes) const
{
    must("truncate -s " + std::to_string(megabytes) + "M " + image() + " && losetup -c " + m_device);
}

} // namespace orvana::test

#include "diskutil/DiskUsers.h"

#include "support/Shell.h"

#include <array>
#include <csignal>
#include <fcntl.h>
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

// Runs `body` in a child process. Returns when the child has closed its end of the pipe or has become another
// program.
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
    if (const auto said = runShell("swapoff " + m_node); said.status != 0)
        ADD_FAILURE() << said.text;
}

SwapFile::SwapFile(std::string path) : m_path(std::move(path))
{
    must("dd if=/dev/zero of=" + asWord(m_path) + " bs=1M count=4 && chmod 600 " + asWord(m_path));
    must("mkswap " + asWord(m_path) + " && swapon " + asWord(m_path));
}

SwapFile::~SwapFile()
{
    if (const auto said = runShell("swapoff " + asWord(m_path)); said.status != 0)
        ADD_FAILURE() << said.text;
}

AttachedImage::AttachedImage(const std::string &path)
{
    m_node = must("truncate -s 4M " + asWord(path) + " && losetup -f --show " + asWord(path));
    must("udevadm settle --timeout=30");
}

AttachedImage::~AttachedImage()
{
    if (const auto said = runShell("losetup -d " + m_node); said.status != 0)
        ADD_FAILURE() << said.text;
}

ServedMount::ServedMount(const std::string &place) : m_place(place)
{
    const auto image = asWord(place + ".image");
    m_node =
        must("mkdir " + asWord(place) + " && truncate -s 10M " + image + " && losetup -f --show " + image);
    const auto said =
        runShell("mkfs.exfat " + m_node + " && mount.exfat-fuse " + m_node + " " + asWord(place));
    must("losetup -d " + m_node); // takes effect when the volume is unmounted
    if (said.status != 0)
        throw std::runtime_error(said.text);
    m_server = must("pgrep -x mount.exfat-fus"); // the kernel keeps only this much of the name
}

ServedMount::~ServedMount()
{
    if (const auto said = runShell("kill -CONT " + m_server + "; umount " + asWord(m_place));
        said.status != 0)
        ADD_FAILURE() << said.text;
}

void ServedMount::fallSilent() const
{
    must("kill -STOP " + m_server);
    // The kernel remembers earlier answers for a second.
    must("for i in $(seq 100); do timeout 0.2 test -d " + asWord(m_place) +
         " || exit 0; sleep 0.1; done; exit 1");
}

} // namespace orvana::test

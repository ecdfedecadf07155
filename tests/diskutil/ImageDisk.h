#pragma once

#include "support/TemporaryTree.h"

#include <sys/types.h>

namespace orvana::test
{

/// True when this process runs on a system of its own: what is mounted and told there stays there.
bool hasPrivateSystem();

/// True when who may do what is decided by an authority that the test plays, or when there is no disk
/// service.
bool hasPlayedAuthority();
bool hasNoDiskService();

enum class Authority { Allows, Denies };

/// What the played authority says to everything that an ordinary user asks for.
void setAuthority(Authority answer);

/// What a program said, both outputs together, and left with.
struct Said
{
    std::string text;
    int status = -1;
};

/// Runs the disk utility that takes images in `bays` for disks; as another user where one is named.
Said runDiskUtility(const std::vector<std::string> &words, const std::string &bays, const std::string &user);

/// Runs the disk utility as it is installed.
Said runInstalledDiskUtility(const std::vector<std::string> &words);

/// An image file on a loop device, which stands for a disk. Detached at the end, with all that is mounted of
/// it.
class ImageDisk
{
public:
    ImageDisk(const std::string &folder, std::string name, int megabytes);
    ~ImageDisk();
    ImageDisk(const ImageDisk &) = delete;
    ImageDisk &operator=(const ImageDisk &) = delete;

    const std::string &node() const { return m_node; }
    std::string partition() const { return m_node + "p1"; }

    /// A partition table with one file system, in which there is a file.
    void makeVolume(const std::string &type, const std::string &label) const;

    void mount(const std::string &place) const;
    void unmount() const;

    /// Name of the user who owns the top folder of its mounted volume.
    std::string owner() const;

    /// Where its volume is mounted; empty when it is not.
    std::string mountPoint() const;
    std::string label() const;

    /// Detaches and attaches it: the same disk at the same node, arrived anew.
    void attachAgain() const;

    /// What marks the disk as a member, and nothing else of one.
    void plantRaidMember() const;
    void plantVolumeGroupMember() const;

    /// "--expect-..." for the disk as it is now.
    std::vector<std::string> expectations() const;

    /// Digest of every byte of the disk.
    std::string digest() const;

    /// Has udev look at it.
    void examine() const;

private:
    void write(std::size_t offset, const std::string &bytes) const;

    std::string m_name;
    std::string m_image;
    std::string m_node;
};

/// A process of the test's own that goes on until the end of the object.
class ChildProcess
{
public:
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    std::string number() const { return std::to_string(m_process); }

protected:
    ChildProcess() = default;

    pid_t m_process = -1;
};

/// A program, "sleep", that works in a folder.
class BusyProcess : public ChildProcess
{
public:
    explicit BusyProcess(const std::string &folder);
};

/// A process that has mounted a device where no other process sees it.
class ForeignMount : public ChildProcess
{
public:
    ForeignMount(const std::string &node, const std::string &place);
};

/// Swap space on a whole disk, in use.
class Swap
{
public:
    explicit Swap(const ImageDisk &disk);
    ~Swap();
    Swap(const Swap &) = delete;
    Swap &operator=(const Swap &) = delete;

private:
    std::string m_node;
};

} // namespace orvana::test

#pragma once

#include <string>
#include <vector>

namespace orvana::test
{

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

    /// One file system over this disk and another; it keeps everything on both.
    void makePairWith(const ImageDisk &other) const;

    void mount(const std::string &place) const;
    void unmount() const;

    /// Name of the user who owns the top folder of its mounted volume.
    std::string owner() const;

    /// Where its volume is mounted; empty when it is not.
    std::string mountPoint() const;
    std::string label() const;
    std::string type() const; ///< "ext4"

    /// Detaches and attaches it: the same disk at the same node, arrived anew.
    void attachAgain() const;

    /// Another disk takes its place at the node.
    void attach(const std::string &image) const;

    /// What marks the disk as a member, and nothing else of one.
    void plantRaidMember() const;
    void plantVolumeGroupMember() const;

    /// Has udev say of it what the package's rule says of disks in bays.
    void markExternal() const;

    /// "--expect-..." for the disk as it is now.
    std::vector<std::string> expectations() const;

    /// Digest of every byte of the disk.
    std::string digest() const;

    /// Has udev look at it.
    void examine() const;

private:
    void makePartition() const;
    void write(std::size_t offset, const std::string &bytes) const;

    std::string m_name;
    std::string m_image;
    std::string m_node;
};

} // namespace orvana::test

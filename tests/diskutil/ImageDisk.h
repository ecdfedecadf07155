#pragma once

#include <string>
#include <vector>

namespace orvana::test
{

/// An image file on a loop device, which stands for a disk. The destructor unmounts and detaches it.
class ImageDisk
{
public:
    ImageDisk(const std::string &folder, std::string name, int megabytes);
    ~ImageDisk();
    ImageDisk(const ImageDisk &) = delete;
    ImageDisk &operator=(const ImageDisk &) = delete;

    const std::string &node() const { return m_node; }
    std::string partition() const { return m_node + "p1"; }

    /// Makes a partition table with one file system, which holds one file.
    void makeVolume(const std::string &type, const std::string &label) const;

    /// Makes one file system over this disk and `other`. It keeps everything on both disks.
    void makePairWith(const ImageDisk &other) const;

    void mount(const std::string &place) const;
    void unmount() const;

    /// Name of the user who owns the top folder of its mounted volume.
    std::string owner() const;

    /// Returns the mount point of its volume, or an empty text if it is not mounted.
    std::string mountPoint() const;
    std::string label() const;
    std::string type() const; ///< "ext4"

    /// Detaches the disk and attaches it again at the same node.
    void attachAgain() const;

    /// Attaches another disk, `image`, at this node.
    void attach(const std::string &image) const;

    /// Writes only the mark by which the disk counts as a member.
    void plantRaidMember() const;
    void plantVolumeGroupMember() const;

    /// Gives the disk the udev properties that the package's rule gives to disks in bays.
    void markExternal() const;

    /// Returns the words "--expect-..." for the disk as it is now.
    std::vector<std::string> expectations() const;

    /// Returns a digest of every byte of the disk.
    std::string digest() const;

    /// Makes udev examine the disk.
    void examine() const;

private:
    void makePartition() const;
    void write(std::size_t offset, const std::string &bytes) const;

    std::string m_name;
    std::string m_image;
    std::string m_node;
};

} // namespace orvana::test

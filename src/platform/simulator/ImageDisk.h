#pragma once

#include <cstdint>
#include <string>

namespace orvana::platform::simulator
{

/// A simulated disk whose bytes are an image file, on a loop device that it attaches and detaches itself.
/// Needs root.
///
/// It uses only image files that it made itself, and knows them by a mark in the simulator's own folder. It
/// formats an image only while that holds no byte at all. It touches no loop device but the image's own.
class ImageDisk
{
public:
    /// `image` is made with `size` bytes when it is missing. `mark` is the file that says so.
    ImageDisk(std::string image, std::uint64_t size, std::string mark);

    /// Attaches the image, gives it an ext4 file system with this label while it is empty, and mounts it at
    /// `folder`. False, with a line in the system log, when that cannot be done.
    bool mount(const std::string &folder, const std::string &label) const;

    /// Unmounts `folder` and detaches the image.
    void unmount(const std::string &folder) const;

    /// Forgets all that the image holds. An image that the simulator did not make is left as it is.
    void wipe() const;

    /// True when a loop device has the image attached.
    bool isAttached() const { return !loopDevice().empty(); }

private:
    bool makeIfMissing() const;
    bool isOwn() const;
    bool isEmpty() const;
    std::string loopDevice() const;

    std::string m_image;
    std::uint64_t m_size;
    std::string m_mark;
};

} // namespace orvana::platform::simulator

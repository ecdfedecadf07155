#pragma once

#include <cstdint>
#include <string>

namespace orvana::platform::simulator
{

/// A simulated disk whose bytes are an image file. It attaches the image to a loop device and detaches it
/// again. Needs root.
///
/// It uses only image files that it made itself, and recognises them by a mark in the simulator's own folder.
/// It formats an image only while the image holds no byte at all. It touches no loop device except the
/// image's own.
class ImageDisk
{
public:
    /// The file `image` is made with `size` bytes at the first mount, if it is missing. The file `mark`
    /// records that the simulator made the image.
    ImageDisk(std::string image, std::uint64_t size, std::string mark);

    /// Attaches the image, formats it with ext4 and this label while it is empty, and mounts it at `folder`.
    /// Returns false, and writes a line to the system log, when this is not possible.
    bool mount(const std::string &folder, const std::string &label) const;

    /// Unmounts `folder` and detaches the image.
    void unmount(const std::string &folder) const;

    /// Erases the whole content of the image. An image that the simulator did not make is left as it is.
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

#pragma once

#include <cstdint>
#include <string>

namespace orvana::platform::simulator
{

/// A simulated disk whose bytes are an image file, on a loop device that it attaches and detaches itself.
/// Needs root. It works on regular files only, and on no loop device but the image's own.
class ImageDisk
{
public:
    /// `image` is made with `size` bytes when it is missing.
    ImageDisk(std::string image, std::uint64_t size);

    /// Attaches the image, gives it an ext4 file system with this label if it has none, and mounts it at
    /// `folder`. False, with a line in the system log, when that cannot be done.
    bool mount(const std::string &folder, const std::string &label) const;

    /// Unmounts `folder` and detaches the image.
    void unmount(const std::string &folder) const;

    /// Forgets all that the image holds.
    void wipe() const;

    /// True when a loop device has the image attached.
    bool isAttached() const { return !loopDevice().empty(); }

private:
    bool isUsable() const;
    std::string loopDevice() const;

    std::string m_image;
    std::uint64_t m_size;
};

} // namespace orvana::platform::simulator

#pragma once

#include "foundation/DeviceBlocks.h"
#include "platform/linux/Disks.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform::linux_host
{

/// The values that distinguish one disk at one place from every other disk.
struct DiskIdentity
{
    std::optional<std::uint64_t> sequence; ///< number that the kernel gave to this arrival
    std::optional<std::string> serial;
    std::uint64_t blocks = 0; ///< of DeviceBlockBytes
    std::string place;        ///< enclosure and bay, or else the kernel's path of the disk

    std::uint64_t bytes() const { return blocks * static_cast<std::uint64_t>(DeviceBlockBytes); }

    auto operator<=>(const DiskIdentity &) const = default;
};

DiskIdentity identityOf(const Disk &disk);

/// The names that disks have in the program: "disk0", and "disk0s1" for its first partition. The kernel
/// reuses its own names for other disks. These names are never reused.
class DiskNames
{
public:
    /// Gives each disk a number: the number that the disk already has, or a new number. A disk that is
    /// missing loses its number for good, and gets another number when it comes back.
    void bind(const std::vector<Disk> &disks);

    /// Returns the number of a disk that is bound, or nullopt for any other disk.
    std::optional<int> numberOf(const Disk &disk) const;

    /// "disk3"
    static std::string nameOf(int number);

    /// "disk3s1"
    static std::string nameOf(int number, const Partition &partition);

private:
    std::map<DiskIdentity, int> m_numbers;
    int m_next = 0;
};

} // namespace orvana::platform::linux_host

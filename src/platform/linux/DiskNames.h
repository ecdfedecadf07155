#pragma once

#include "foundation/DeviceBlocks.h"
#include "platform/linux/Disks.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform::linux_host
{

/// What tells one disk at one place from every other.
struct DiskIdentity
{
    std::optional<std::uint64_t> sequence; ///< the kernel's number of this arrival
    std::optional<std::string> serial;
    std::uint64_t blocks = 0; ///< of DeviceBlockBytes
    std::string place;        ///< enclosure and bay, or where else it is wired

    std::uint64_t bytes() const { return blocks * static_cast<std::uint64_t>(DeviceBlockBytes); }

    auto operator<=>(const DiskIdentity &) const = default;
};

DiskIdentity identityOf(const Disk &disk);

/// The names that disks have in the program: "disk0", and "disk0s1" for its first partition. The kernel's own
/// names are used again for other disks; these never are.
class DiskNames
{
public:
    /// Gives each disk a number: the one that it has, or a new one. A disk that is missing loses its own for
    /// good, so it has another when it comes back.
    void bind(const std::vector<Disk> &disks);

    /// The number of a disk that is bound; nothing otherwise.
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

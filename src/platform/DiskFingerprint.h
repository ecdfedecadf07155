#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvana::platform
{

/// The marks by which a disk is recognised, as they were at one moment.
///
/// To protect a disk, one matching mark is enough (`mayBeTheSame`). To act on a disk, all marks must match,
/// including the marks that are missing (`==`).
struct DiskFingerprint
{
    std::string device;                  ///< the program's node, "/dev/disk3"; empty when there is no node
    std::optional<std::string> serial;   ///< as the disk itself reports it, also for USB disks
    std::optional<std::string> wwn;      ///< World Wide Name
    std::optional<std::int64_t> arrival; ///< number that the system gave to this arrival of the disk
    std::optional<std::int64_t> size;    ///< bytes

    bool operator==(const DiskFingerprint &) const = default;
};

/// True when `other` may be the disk `known`: they have the same device, arrival number or World Wide Name,
/// or the same serial number and size. A known disk without a serial number of its own may be any disk of its
/// size.
bool mayBeTheSame(const DiskFingerprint &known, const DiskFingerprint &other);

} // namespace orvana::platform

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvana::platform
{

/// The marks by which a disk is recognised, as they were at one moment.
///
/// To protect a disk, one mark that agrees is enough (`mayBeTheSame`). To act on a disk, all marks must
/// agree, those that are missing included (`==`).
struct DiskFingerprint
{
    std::string device;                  ///< the program's node, "/dev/disk3"; empty where there is none
    std::optional<std::string> serial;   ///< as the disk itself says, USB disks included
    std::optional<std::string> wwn;      ///< World Wide Name
    std::optional<std::int64_t> arrival; ///< the system's number of this arrival of the disk
    std::optional<std::int64_t> size;    ///< bytes

    bool operator==(const DiskFingerprint &) const = default;
};

/// True when `other` may be the disk `known`: the device, the arrival number, the World Wide Name, or the
/// serial number together with the size agree. A known disk without a serial number of its own may be any
/// disk of its size.
bool mayBeTheSame(const DiskFingerprint &known, const DiskFingerprint &other);

} // namespace orvana::platform

#pragma once

#include <string>

namespace orvana
{

/// One disk for the disk tool to act on.
struct DiskUtilInfo
{
    std::string diskSN;     ///< serial number; kept for reference
    std::string diskModule; ///< model
    std::string diskPath;   ///< device node, "/dev/disk3"
    std::string diskVolume; ///< the name to give, or, for an eject, the name shown

    bool operator==(const DiskUtilInfo &) const = default;
};

} // namespace orvana

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// What one line of the disk-free listing says of a volume.
struct DiskFreeLine
{
    std::string device;                    ///< column 0
    std::optional<std::int64_t> capacity;  ///< column 1, blocks of 512 bytes; nothing if it is no number
    std::optional<std::int64_t> used;      ///< column 2, the same
    std::optional<std::int64_t> available; ///< column 3, the same
    std::string mountPoint;                ///< columns 8 and after, joined by single blanks; may be empty
};

/// The lines of the listing that contain `filter`, in order. The text comes from outside: whatever it holds,
/// the result is well-formed; text that is not UTF-8 has no lines at all.
std::vector<DiskFreeLine> parseDiskFree(std::string_view listing, std::string_view filter);

} // namespace orvana

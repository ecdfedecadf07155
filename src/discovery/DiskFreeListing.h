#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

/// One line of the disk-free listing, about one volume.
struct DiskFreeLine
{
    std::string device;                    ///< column 0
    std::optional<std::int64_t> capacity;  ///< column 1, blocks of 512 bytes; nullopt if it is no number
    std::optional<std::int64_t> used;      ///< column 2, blocks of 512 bytes; nullopt if it is no number
    std::optional<std::int64_t> available; ///< column 3, blocks of 512 bytes; nullopt if it is no number
    std::string mountPoint;                ///< columns 8 and after, joined by single blanks; may be empty
};

/// Returns the lines of the listing that contain `filter`, in order. The text comes from outside: the result
/// is well-formed whatever the text holds. A text that is not UTF-8 gives no lines at all.
std::vector<DiskFreeLine> parseDiskFree(std::string_view listing, std::string_view filter);

} // namespace orvana

#pragma once

#include <string>
#include <vector>

namespace orvana::platform::linux_host
{

/// One line of the kernel's mount table.
struct Mount
{
    std::string source; ///< "/dev/sda1", or a word of the file system's own
    std::string target; ///< mount point, in bytes as it is
    std::string root;   ///< which folder of the file system is mounted; "/" is all of it
    std::string type;
    std::string options; ///< of mount and file system
    std::string number;  ///< "8:17"; some file systems have one of their own, with a leading 0
};

/// The table in `file`, in its order: "/proc/self/mountinfo", or a text in its format. Empty if unreadable.
std::vector<Mount> readMounts(const std::string &file);

/// Sources of the swap table in `file`, "/proc/swaps" or a text in its format.
std::vector<std::string> readSwaps(const std::string &file);

} // namespace orvana::platform::linux_host

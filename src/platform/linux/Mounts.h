#pragma once

#include <string>
#include <vector>

namespace orvana::platform::linux_host
{

/// One line of the kernel's mount table.
struct Mount
{
    std::string source; ///< "/dev/sda1", or a word that the file system defines
    std::string target; ///< mount point, as unchanged bytes
    std::string root;   ///< folder of the file system that is mounted; "/" means all of it
    std::string type;
    std::string options; ///< options of the mount and of the file system
    std::string number;  ///< "8:17"; some file systems have a number of their own, with a leading 0
};

/// Returns the mounts of the table in `file`, in the order of the table. `file` is "/proc/self/mountinfo" or
/// a text in the same format. The list is empty when `file` cannot be read.
std::vector<Mount> readMounts(const std::string &file);

/// Returns the sources in the swap table in `file`, which is "/proc/swaps" or a text in the same format.
std::vector<std::string> readSwaps(const std::string &file);

/// Returns the sources in the table of file systems in `file`, which is "/etc/fstab" or a text in the same
/// format: nodes, or tags such as "UUID=1234".
std::vector<std::string> readFileSystemTable(const std::string &file);

} // namespace orvana::platform::linux_host

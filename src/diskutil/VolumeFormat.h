#pragma once

#include "diskutil/Outcome.h"
#include "duplicate/disktool/VolumeName.h"

#include <optional>

namespace orvana::diskutil
{

/// A file system that a disk can be erased to.
struct VolumeFormat
{
    const char *type;          ///< as the disk service calls it
    const char *partitionType; ///< type of the one partition in a GUID table
    EraseFormat rules;         ///< rules for volume names
};

/// Returns the format that a word stands for: "ext4", "xfs", "exfat" or "JHFS+". "JHFS+" stands for this
/// machine's own file system: `setting` if it is given and not empty, otherwise ext4.
Outcome<VolumeFormat> formatOf(const std::string &word, const std::optional<std::string> &setting);

/// Refuses a name that the format cannot hold unchanged, or that has another meaning in the program. Never
/// shortens a name.
Outcome<void> checkName(const VolumeFormat &format, const std::string &name);

} // namespace orvana::diskutil

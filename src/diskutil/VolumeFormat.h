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
    const char *partitionType; ///< of the one partition, in a GUID table
    EraseFormat rules;         ///< for names
};

/// The format that a word stands for: "ext4", "xfs", "exfat", or "JHFS+", which stands for this machine's own
/// journaled one, `setting` if that is given and not empty, and ext4 otherwise.
Outcome<VolumeFormat> formatOf(const std::string &word, const std::optional<std::string> &setting);

/// Refuses a name that the format cannot carry as it is, or that stands for something else in the program. A
/// name is never shortened.
Outcome<void> checkName(const VolumeFormat &format, const std::string &name);

} // namespace orvana::diskutil

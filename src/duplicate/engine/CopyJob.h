#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// Copy and comparison work in blocks of this many bytes. The size is part of the product: messages and
/// counts follow it. Only tests build with another one, to see that nothing else depends on it.
#ifdef PLURIMO_BLOCK_SIZE
inline constexpr std::size_t BlockSize = PLURIMO_BLOCK_SIZE;
#else
inline constexpr std::size_t BlockSize = 1'048'576;
#endif

/// By what a folder is told from any other.
struct FolderIdentity
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FolderIdentity &) const = default;
};

/// What one run is to do.
struct CopyJob
{
    std::vector<std::string> SrcFileArray; ///< the ticked files and folders, absolute paths
    std::string SrcDiskPath;               ///< root of the source volume
    std::vector<std::string> DesFileArray; ///< roots of the destination volumes
    /// What the destination roots were when the job was set; a run writes to no other folder. Nothing for
    /// one that was not there.
    std::vector<std::optional<FolderIdentity>> expectedRoots;
    std::int64_t totalFiles = 0; ///< what the caller counted; the total bar is reckoned from it
};

/// Where the copies of one source item go: a path for each destination of the job, in its order. An absent
/// one is passed over.
using OutArray = std::vector<std::optional<std::string>>;

} // namespace orvana

#pragma once

#include "platform/Metadata.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// Copy and comparison work in blocks of this many bytes. The size is part of the product: messages and
/// counts depend on it. Only tests build with another size, to see that nothing else depends on it.
#ifdef PLURIMO_BLOCK_SIZE
inline constexpr std::size_t BlockSize = PLURIMO_BLOCK_SIZE;
#else
inline constexpr std::size_t BlockSize = 1'048'576;
#endif

/// The numbers that identify a folder or file.
struct FolderIdentity
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    auto operator<=>(const FolderIdentity &) const = default;
};

/// What a run does when it finds, before the first write, that a destination cannot hold the selection.
enum class PreflightAction {
    Off,      ///< it does not look
    GoOn,     ///< tells it, and copies what can be copied
    LeaveOut, ///< leaves these destinations out
    Stop,     ///< copies nothing
};

/// How a run treats files that are on a destination already, and what it keeps besides their content.
struct CopyManner
{
    bool update = false; ///< compare them block by block, and write only the blocks that differ
    bool exact = false;  ///< cut them to the length of their source; `update` does so, too
    bool repair = false; ///< write blocks once more that differ when they are read back
    platform::Keep keep = platform::Keep::Nothing;
    PreflightAction preflight = PreflightAction::Off;

    bool cutsTails() const { return update || exact; }
    bool operator==(const CopyManner &) const = default;
};

/// The work of one run.
struct CopyJob
{
    std::vector<std::string> SrcFileArray; ///< the ticked files and folders, absolute paths
    std::string SrcDiskPath;               ///< root of the source volume
    std::vector<std::string> DesFileArray; ///< roots of the destination volumes
    /// The folders that the destination roots were when the job was set. A run writes to no other folder.
    /// nullopt for a root that did not exist.
    std::vector<std::optional<FolderIdentity>> expectedRoots;
    std::int64_t totalFiles = 0; ///< as the caller counted them; the total progress bar is computed from this
};

/// The paths of the copies of one source item: one for each destination of the job, in its order. A
/// destination with nullopt is skipped.
using OutArray = std::vector<std::optional<std::string>>;

} // namespace orvana

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/plan/ScannedDevices.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The source as it was when it was chosen: its root, the folder at its root, and the disks on which it lies.
struct SourceMemory
{
    std::string root;                     ///< empty while no source is chosen
    std::optional<FolderIdentity> folder; ///< the folder at the root; nullopt if there was none
    std::vector<DiskFingerprint> disks;   ///< sorted by device
};

/// Remembers the source whose tree starts at `root`. Asks the host for the disks beneath `root`.
SourceMemory rememberSource(platform::Host &host, const ScannedDevices &devices, const std::string &root);

/// False when another folder is at the root by now, or when the root lies on other disks.
bool isStillThere(platform::Host &host, const ScannedDevices &devices, const SourceMemory &source);

/// Adds the disks that a run over `selection` reads from. These are the disks beneath the selected items,
/// beneath the targets of links directly in a selected folder, and beneath everything mounted below. Reads
/// only the own list of each selected folder.
void addDisksOf(platform::Host &host, const ScannedDevices &devices,
                const std::vector<std::string> &selection, std::vector<DiskFingerprint> &disks);

/// True when the disk may be one of `protectedDisks`. One mark that agrees is enough.
bool isAmong(const ORVHddInfo &disk, const std::vector<DiskFingerprint> &protectedDisks);

} // namespace orvana

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/plan/ScannedDevices.h"

#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The source as it was when it was chosen: what its root was, and on which disks it lies.
struct SourceMemory
{
    std::string root;                     ///< empty while no source is chosen
    std::optional<FolderIdentity> folder; ///< what stood at the root; nullopt when nothing did
    std::vector<DiskFingerprint> disks;   ///< sorted by device
};

/// Remembers the source whose tree starts at `root`. Asks the host for the disks beneath it.
SourceMemory rememberSource(platform::Host &host, const ScannedDevices &devices, const std::string &root);

/// False when another folder stands at the root by now, or the root lies on other disks.
bool isStillThere(platform::Host &host, const ScannedDevices &devices, const SourceMemory &source);

/// Adds the disks that a run over `selection` reads from: those beneath the selected items, beneath what the
/// links directly in a selected folder lead to, and beneath everything mounted below. Reads each selected
/// folder's own list and no more.
void addDisksOf(platform::Host &host, const ScannedDevices &devices,
                const std::vector<std::string> &selection, std::vector<DiskFingerprint> &disks);

/// True when the disk may be one of `protectedDisks`; one mark that agrees is enough.
bool isAmong(const ORVHddInfo &disk, const std::vector<DiskFingerprint> &protectedDisks);

} // namespace orvana

#pragma once

#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/Manifest.h"
#include "platform/VolumeFiles.h"

#include <string>
#include <vector>

namespace orvana
{

/// The manifests that a copy is to get.
struct ManifestOrder
{
    ManifestKind kind = ManifestKind::None;
    ManifestStyle style;
    /// The folders that get a manifest each: paths below the volume, none within another. Empty is its root.
    std::vector<std::string> scopes;
    std::vector<std::string> skipped; ///< what a rule left out; paths below the volume
};

/// Removes the folders that lie within another one.
std::vector<std::string> outermost(std::vector<std::string> folders);

/// Writes the manifests of one copy. `tell` is called with each file that is not listed, and with each folder
/// that gets no manifest. `volume` is the root of the copy, `copy` its number in the log.
std::vector<WrittenManifest> writeManifests(platform::Folder &volume, const EvidenceLog &log,
                                            std::size_t copy, const ManifestOrder &order,
                                            const EvidenceListener &tell);

} // namespace orvana

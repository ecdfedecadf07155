#pragma once

#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/HistoryWriter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orvana
{

/// What a run leaves on its copies.
enum class ManifestKind {
    None,
    Mhl,  ///< a generation of an ASC MHL history
    Sums, ///< a checksum file
};

/// The manifests that a copy is to get.
struct ManifestOrder
{
    ManifestKind kind = ManifestKind::None;
    ManifestStyle style;
    /// The folders that get a manifest each: paths below the volume, none within another. Empty is its root.
    std::vector<std::string> scopes;
    std::vector<std::string> skipped; ///< what a rule left out; paths below the volume
};

/// A manifest that is on the disk.
struct WrittenManifest
{
    std::string path; ///< below the volume, bytes
    DigestFormat digestFormat = DigestFormat::C4;
    std::string digest; ///< of the manifest itself
    std::uint64_t files = 0;

    bool operator==(const WrittenManifest &) const = default;
};

/// Removes the folders that lie within another one.
std::vector<std::string> outermost(std::vector<std::string> folders);

/// True when a checksum file can have lines of the format: all but c4.
bool canBeInSums(DigestFormat format);

/// Writes the manifests of one copy. `tell` is called with each file that is not listed, and with each folder
/// that gets no manifest. `volume` is the root of the copy, `copy` its number in the log.
std::vector<WrittenManifest> writeManifests(platform::Folder &volume, const EvidenceLog &log,
                                            std::size_t copy, const ManifestOrder &order,
                                            const EvidenceListener &tell);

} // namespace orvana

#pragma once

#include "duplicate/evidence/Digest.h"

#include <cstdint>
#include <functional>
#include <string>

namespace orvana
{

/// What a run leaves on its copies.
enum class ManifestKind {
    None,
    Mhl,  ///< a generation of an ASC MHL history
    Sums, ///< a checksum file
};

/// What is the same in all manifests of one copy.
struct ManifestStyle
{
    DigestFormat format = DigestFormat::Xxh128;
    std::int64_t started = 0; ///< of the run, seconds since 1970
    std::string host;
    std::string comment; ///< UTF-8; may be empty
    std::string process; ///< "transfer" or "in-place"
    std::string programVersion;
    std::string rootName;         ///< of the volume, for the names of manifests in its root
    std::string folderForSorting; ///< for files without a name
    std::string stationFolder;    ///< gets a copy of each manifest; empty for none
};

/// What a reader of the manifests should know besides.
struct EvidenceRemark
{
    enum class Kind {
        NotListed,      ///< the file is on the disk, but not in the manifest
        NoManifest,     ///< the folder gets no manifest at all
        NotAsInHistory, ///< the file differs from what earlier generations say, or is missing
    };

    Kind kind = Kind::NotListed;
    std::string path; ///< of a file or folder, below the volume
    std::string text; ///< the reason
};

using EvidenceListener = std::function<void(const EvidenceRemark &)>;

/// A manifest that is on the disk.
struct WrittenManifest
{
    std::string path; ///< below the volume, bytes
    DigestFormat digestFormat = DigestFormat::C4;
    std::string digest; ///< of the manifest itself
    std::uint64_t files = 0;

    bool operator==(const WrittenManifest &) const = default;
};

/// Returns the machine's own name, as text.
std::string nameOfMachine();

} // namespace orvana

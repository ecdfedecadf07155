#pragma once

#include "duplicate/evidence/MhlXml.h"
#include "platform/VolumeFiles.h"

#include <functional>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

/// What is wrong with a manifest.
struct ManifestError
{
    int line = 0;       ///< counted from 1; 0 for the file as a whole
    std::string reason; ///< a sentence without its stop; may hold texts of the file, made safe to show

    /// "line 12: the path is missing"
    std::string text() const;
};

/// One digest that a manifest has of a file.
struct ManifestDigest
{
    DigestFormat format = DigestFormat::Xxh128;
    std::string text;
    DigestAction action = DigestAction::Original;
};

/// A file or folder of a manifest. Folders have no digests here: they follow from the files.
struct ManifestEntry
{
    std::string path; ///< below the folder of the history
    bool isFolder = false;
    std::optional<std::uint64_t> size;
    std::vector<ManifestDigest> digests; ///< those of formats that this program knows
    std::string previousPath;            ///< where the file was in earlier generations; empty: the same
};

/// What a manifest says besides its entries.
struct ManifestFacts
{
    std::string tool; ///< the program that wrote it
    std::string process;
    std::vector<std::string> ignored;     ///< patterns
    std::vector<MhlReference> references; ///< paths below the folder of the history
};

/// Reads a manifest of ASC MHL 2.0, piece by piece, and passes on its entries in the order of the file.
/// Refuses what is not well-formed, what has a document type, and paths that lead out of the folder.
tl::expected<ManifestFacts, ManifestError> readMhl(platform::File &file,
                                                   const std::function<void(const ManifestEntry &)> &take);

/// Reads a chain file. The generations must be numbered from 1 without a gap.
tl::expected<std::vector<MhlReference>, ManifestError> readChain(platform::File &file);

} // namespace orvana

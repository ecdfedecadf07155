#pragma once

#include "duplicate/evidence/EvidenceLog.h"
#include "duplicate/evidence/Manifest.h"
#include "platform/VolumeFiles.h"

#include <string>
#include <tl/expected.hpp>

namespace orvana
{

/// True when a checksum file can have lines of the format: all but c4.
bool canBeInSums(DigestFormat format);

/// Writes the checksum file of the folder `scope` of one copy, called after the folder and the time of the
/// run. `volume` is the root of the copy, `copy` its number in the log. The error says why there is none.
tl::expected<WrittenManifest, std::string> writeSums(platform::Folder &volume, const EvidenceLog &log,
                                                     std::size_t copy, const std::string &scope,
                                                     const ManifestStyle &style,
                                                     const EvidenceListener &tell);

} // namespace orvana

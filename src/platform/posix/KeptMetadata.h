#pragma once

#include "platform/Metadata.h"

namespace orvana::platform::posix
{

/// Reads what `keep` asks for from an open file or folder.
Expected<Metadata> metadataOf(int descriptor, Keep keep);

/// Gives an open file or folder what `keep` asks for. What it has already is left untouched. Returns the
/// parts that the volume or the system refused, or took but did not hold.
MissingParts applyMetadata(int descriptor, const Metadata &metadata, Keep keep);

/// As `metadataOf`, for the entry `name` of the folder `at`, itself if it is a link. Links have neither
/// permissions nor extended attributes here.
Expected<Metadata> metadataOfLink(int at, const char *name);

/// As `applyMetadata`, for a link.
MissingParts applyToLink(int at, const char *name, const Metadata &metadata, Keep keep);

} // namespace orvana::platform::posix

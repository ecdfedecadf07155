#pragma once

#include "duplicate/evidence/Digest.h"

#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>

namespace orvana
{

/// One line of a checksum file, such as md5sum, sha256sum and xxh128sum write and check.
struct ChecksumLine
{
    DigestFormat format = DigestFormat::Xxh128;
    std::string digest; ///< as `isDigest` accepts it; hexadecimal digits in lower case
    std::string path;   ///< below the folder that the list is about, bytes

    bool operator==(const ChecksumLine &) const = default;
};

/// Returns the line without its end: "HEX  path". A line feed, a carriage return and a backslash in the path
/// are escaped as coreutils do it. Returns nullopt for a path that the format's checker cannot read back:
/// xxhsum knows no escapes, and C4 has no checker of lines.
std::optional<std::string> textOf(const ChecksumLine &line);

/// Reads a line without its line feed. Returns nullopt for an empty line and for a comment ("#" in the first
/// column).
///
/// Understands "HEX  path", "HEX *path", "XXH3_HEX  path" and "SHA256 (path) = HEX", with and without
/// escapes. A carriage return at the end belongs to the end of the line. 32 digits are md5 or xxh128:
/// `expected` decides, which the caller knows from the file's name. The error says what is wrong, and names
/// nothing. A path that is absolute or has ".." in it is wrong, because it would lead out of the folder.
tl::expected<std::optional<ChecksumLine>, std::string> readChecksumLine(std::string_view line,
                                                                        std::optional<DigestFormat> expected);

} // namespace orvana

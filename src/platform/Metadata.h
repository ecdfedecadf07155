#pragma once

#include "platform/FileError.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvana::platform
{

/// How much of what a file, folder or link has besides its content goes to its copy. Each value includes the
/// ones before it.
enum class Keep {
    Nothing,
    Dates, ///< when the content was written last
    All,   ///< owner, group, permissions and extended attributes, among them access lists
};

/// Parts of a source that a volume may be unable to hold.
enum class Part { Owner, Permissions, ExtendedAttributes, Date, Link, HardLink, Hole };

inline constexpr std::size_t PartCount = 7;

/// The parts of one entry that its copy did not get.
class MissingParts
{
public:
    void add(Part part) { m_isMissing[static_cast<std::size_t>(part)] = true; }
    bool has(Part part) const { return m_isMissing[static_cast<std::size_t>(part)]; }
    bool isEmpty() const { return *this == MissingParts(); }

    bool operator==(const MissingParts &) const = default;

private:
    std::array<bool, PartCount> m_isMissing{};
};

struct ExtendedAttribute
{
    std::string name;
    std::string value; ///< bytes

    bool operator==(const ExtendedAttribute &) const = default;
};

/// What a file, folder or link has besides its name and its content.
struct Metadata
{
    std::optional<std::uint32_t> permissions; ///< the twelve bits; nullopt for a link
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    std::int64_t modified = 0;               ///< nanoseconds since 1970
    std::vector<ExtendedAttribute> extended; ///< sorted by name; only for Keep::All, and not of links
    bool isComplete = true;                  ///< all extended attributes could be read
};

} // namespace orvana::platform

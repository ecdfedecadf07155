#pragma once

#include "duplicate/evidence/Digest.h"
#include "duplicate/evidence/FolderDigests.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvana
{

// The elements of an ASC MHL manifest and of its chain, as text. Callers put them in the order of the format:
// head, entries, end.

/// The name that our manifests give as their tool.
inline constexpr std::string_view ProgramName = "Orvana Plurimo";

/// What became of a file's digest, compared with those that its history knows.
enum class DigestAction { Original, Verified, Failed };

struct MhlHead
{
    std::int64_t started = 0; ///< seconds since 1970
    std::string host;         ///< name of the machine
    std::string comment;      ///< UTF-8; empty for none
    std::string process;      ///< "transfer" or "in-place"
    std::optional<FolderDigest> root;
    std::vector<std::string> ignored; ///< patterns
};

/// A file in a manifest.
struct MhlFile
{
    std::string path; ///< below the folder of the history, as `canBeInMhl` accepts it
    std::uint64_t size = 0;
    std::int64_t modified = 0; ///< seconds since 1970
    std::int64_t digested = 0; ///< seconds since 1970
    DigestFormat format = DigestFormat::Xxh128;
    std::string digest;
    DigestAction action = DigestAction::Original;
};

/// A manifest of a history that lies deeper, or a generation in a chain.
struct MhlReference
{
    std::string path; ///< of the manifest
    std::string c4;

    bool operator==(const MhlReference &) const = default;
};

/// True when XML, and the checkers that read it, can carry the path: UTF-8 without control characters.
bool canBeInMhl(std::string_view path);

/// True for the formats that an ASC MHL may hold: all but sha256.
bool canBeInMhl(DigestFormat format);

/// "2026-11-21_193912Z"
std::string mhlStamp(std::int64_t seconds);

std::string mhlStart(const MhlHead &head, DigestFormat format, std::string_view programVersion);
std::string mhlEntry(const MhlFile &file);
std::string mhlFolder(std::string_view path, std::int64_t modified, std::int64_t digested,
                      const std::optional<FolderDigest> &digest, DigestFormat format);

/// Texts around the entries. A manifest without an entry has neither of them.
extern const std::string_view MhlEntriesStart;
extern const std::string_view MhlEntriesEnd;

std::string mhlEnd(const std::vector<MhlReference> &references);

/// The whole chain file. Its generations are numbered from 1.
std::string chainText(const std::vector<MhlReference> &generations);

} // namespace orvana

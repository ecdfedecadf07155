#pragma once

#include "duplicate/evidence/History.h"

#include <optional>
#include <stop_token>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace orvana
{

enum class ListKind {
    History,  ///< an ASC MHL history, with all its generations
    Manifest, ///< one ASC MHL manifest by itself
    Sums,     ///< a checksum file
};

/// A list of files that lies on a disk, and the folder that it is about.
struct DiskList
{
    ListKind kind = ListKind::History;
    std::string folder; ///< below the disk's root; empty for the root itself
    std::string file;   ///< the newest manifest, or the checksum file; below the disk's root if it lies there
    std::string digest; ///< c4 of that file
    std::vector<MhlReference> manifests; ///< all files that the list consists of, and their c4
    std::vector<std::string> ignored;    ///< patterns, below `folder`
};

/// Why a list is of no use. `file` is below the disk's root.
struct ListError
{
    std::string file;
    ManifestError detail;

    /// "CARD/ascmhl/ascmhl_chain.xml: line 3: mismatched tag"
    std::string text() const;
};

/// Finds the lists of a disk: that of its root, else those of the outermost folders that have one. A folder
/// with a history is not searched for checksum files. Where several checksum files could be meant, that is an
/// error. Returns what it has found so far when `token` is stopped.
tl::expected<std::vector<DiskList>, ListError> findLists(const platform::Folder &disk,
                                                         const std::stop_token &token);

/// Returns the given file as the list of a disk's root.
DiskList listFromFile(const std::string &path);

/// Reads the list into `known`, with paths below the disk's root, and fills in the list's other members.
/// `files` opens a list that does not lie on the disk; its path is then absolute.
std::optional<ListError> readList(const platform::Folder &disk, const platform::Folder &files, DiskList &list,
                                  KnownFiles &known);

/// Reads a history that lies within that of another folder into `known`.
std::optional<ListError> readNestedHistory(const platform::Folder &disk, const std::string &folder,
                                           KnownFiles &known);

/// True for the names of checksum files that this program gives: "CARD_2026-11-23_020132Z.md5".
bool isNameOfOurSums(std::string_view name);

/// True for the names that programs give to checksum files: "SHA256SUMS", "card.md5".
bool isNameOfSums(std::string_view name);

} // namespace orvana

#pragma once

#include "duplicate/evidence/Digest.h"
#include "duplicate/evidence/DiskSort.h"

#include <string>
#include <string_view>

namespace orvana
{

/// The two digests of a folder, as ASC MHL defines them: one of its content alone, one of names as well.
struct FolderDigest
{
    std::string content;
    std::string structure;

    bool operator==(const FolderDigest &) const = default;
};

/// Makes the digests of one folder out of those of its entries, which may come in any order.
class FolderDigestMaker
{
public:
    /// Keeps the digests of a huge folder in a file without a name in `folderForSorting`.
    FolderDigestMaker(DigestFormat format, const std::string &folderForSorting);

    void addFile(std::string_view name, const std::string &digest);
    void addFolder(std::string_view name, const FolderDigest &digest);

    /// Returns the digests. To be called once. Returns false in `isWhole` when an entry was lost because the
    /// disk took no more.
    FolderDigest result(bool &isWhole);

private:
    void addStructure(std::string_view name, const std::string &digest);
    std::string digestOf(DiskSort &digests, bool &isWhole) const;

    DigestFormat m_format;
    DiskSort m_content;
    DiskSort m_structure;
};

} // namespace orvana

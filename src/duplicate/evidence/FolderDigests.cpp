#include "duplicate/evidence/FolderDigests.h"

namespace orvana
{

namespace
{

// Bytes in memory for each of the two lists of a folder. Folders lie within each other, so it is little.
constexpr std::size_t Budget = 128UL * 1024;

} // namespace

FolderDigestMaker::FolderDigestMaker(DigestFormat format, const std::string &folderForSorting)
    : m_format(format), m_content(folderForSorting, Budget), m_structure(folderForSorting, Budget)
{
}

void FolderDigestMaker::addFile(std::string_view name, const std::string &digest)
{
    m_content.add(bytesOfDigest(m_format, digest));
    addStructure(name, digest);
}

void FolderDigestMaker::addFolder(std::string_view name, const FolderDigest &digest)
{
    m_content.add(bytesOfDigest(m_format, digest.content));
    addStructure(name, digest.structure);
}

void FolderDigestMaker::addStructure(std::string_view name, const std::string &digest)
{
    Digest both(m_format);
    both.add(name);
    both.add(bytesOfDigest(m_format, digest));
    m_structure.add(bytesOfDigest(m_format, both.text()));
}

FolderDigest FolderDigestMaker::result(bool &isWhole)
{
    isWhole = true;
    FolderDigest digest;
    digest.content = digestOf(m_content, isWhole);
    digest.structure = digestOf(m_structure, isWhole);
    return digest;
}

std::string FolderDigestMaker::digestOf(DiskSort &digests, bool &isWhole) const
{
    isWhole = digests.finish() && isWhole;
    Digest digest(m_format);
    DiskSort::Cursor cursor(digests);
    for (; cursor; cursor.next())
        digest.add(cursor.record());
    isWhole = !cursor.hasFailed() && isWhole;
    return digest.text();
}

} // namespace orvana

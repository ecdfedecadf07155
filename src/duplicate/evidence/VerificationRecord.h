#pragma once

#include "duplicate/evidence/DiskVerdict.h"
#include "duplicate/evidence/EvidenceLog.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <string>

namespace orvana
{

/// What a verification has read of the folder of a list, to be appended to its history as the next
/// generation.
class VerificationRecord
{
public:
    /// Keeps what is too much for memory in a file without a name in `folderForSorting`, the folder of the
    /// logs.
    explicit VerificationRecord(std::string folderForSorting)
        : m_folderForSorting(std::move(folderForSorting)), m_log(m_folderForSorting)
    {
    }

    /// Paths are those below the disk's root, `modified` is in seconds since 1970.
    void addFolder(const std::string &path, std::int64_t modified);
    void addFile(const std::string &path, std::uint64_t size, std::int64_t modified, DigestFormat format,
                 const std::string &digest);

    /// Appends a generation to the list, if that is a history, and notes in it what became of that.
    /// `rootName` is the name of the disk, `started` the time of the verification in seconds since 1970,
    /// `format` that of the digests of folders. A copy goes to the station.
    void append(platform::Folder &disk, const std::string &rootName, std::int64_t started,
                DigestFormat format, VerifiedList &verified);

private:
    std::string m_folderForSorting;
    EvidenceLog m_log;
};

} // namespace orvana

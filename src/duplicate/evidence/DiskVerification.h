#pragma once

#include "duplicate/evidence/DiskVerdict.h"
#include "duplicate/evidence/FoundEntries.h"
#include "duplicate/evidence/IgnorePatterns.h"
#include "duplicate/evidence/StationCopies.h"
#include "duplicate/evidence/VerificationRecord.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace orvana
{

struct VerifyOptions
{
    std::optional<std::string> manifest; ///< a list to use instead of those on the disks; absolute path
    bool record = false;                 ///< append a generation with the result to each history
    std::string folderForSorting;        ///< for files without a name
    std::int64_t started = 0;            ///< seconds since 1970
    std::shared_ptr<const StationCopies> station; ///< never null
};

/// How far a verification is. Read on any thread.
struct VerifyProgress
{
    std::atomic<std::uint64_t> bytes{0};
    std::atomic<std::uint64_t> totalBytes{0}; ///< 0 until the files were counted
    std::atomic<std::int64_t> files{0};
};

/// Verifies one disk against the lists on it, on the calling thread.
class DiskVerification
{
public:
    /// `root` is the disk's mount point, or any folder. `tell` is called with each file that is not whole.
    DiskVerification(platform::VolumeFiles &files, std::string root, const VerifyOptions &options,
                     VerifyProgress &progress, std::function<void(const Finding &)> tell);

    /// Reads everything that the lists are about. Ends early when `token` is stopped.
    DiskVerdict verify(const std::stop_token &token);

private:
    struct ListWork;

    std::vector<DiskList> listsToUse();
    void prepare(ListWork &work);
    StationCopy stationCopyOf(const DiskList &list) const;
    void walk(ListWork &work);
    void addEntry(ListWork &work, const std::string &path, std::vector<std::string> &waiting);
    void remember(ListWork &work, const std::string &folder, std::int64_t modified) const;
    bool isPassedOver(const ListWork &work, const std::string &path, bool isFolder) const;
    static bool isNoContent(const ListWork &work, const std::string &path);
    void compare(ListWork &work);
    void compareEntry(ListWork &work, const FoundEntry &entry, const KnownFile *known);
    void noteMissing(const ListWork &work, const KnownFile &known);
    platform::Expected<std::string> digestOf(const std::string &path, DigestFormat format);
    void note(FileFinding finding, const std::string &path, std::string reason = {});
    bool isCancelled();

    platform::VolumeFiles &m_files;
    const std::string m_root;
    const VerifyOptions &m_options;
    VerifyProgress &m_progress;
    std::function<void(const Finding &)> m_tell;
    std::unique_ptr<platform::Folder> m_disk;
    std::stop_token m_token;
    DiskVerdict m_verdict;
    std::vector<std::byte> m_block;
};

} // namespace orvana

#pragma once

#include "duplicate/plan/ScannedDevices.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvana
{

/// The content of a disk, as far as it is known.
struct DiskContent
{
    /// The disk holds nothing. Either the system examined the disk and recognised nothing on it, or all its
    /// volumes are mounted and hold no entry but "lost+found".
    bool isBlank = false;

    /// Everything on the disk is mounted and could be read. Unknown content counts as something.
    bool isKnown = false;

    std::uint64_t usedBytes = 0;  ///< of the mounted volumes
    std::uint64_t files = 0;      ///< found on the mounted volumes so far
    bool isCountComplete = false; ///< `files` counts all files

    bool operator==(const DiskContent &) const = default;
};

/// "12.50 GB in 3402 files", "12.50 GB in at least 3402 files", "12.50 GB, and something that is not
/// mounted".
std::string contentText(const DiskContent &content);

/// Finds out what disks hold, on a thread of its own. Main thread only.
///
/// The survey takes two seconds at most, whatever the disks hold. A disk that does not answer counts as
/// holding something. A thread that hangs in the kernel is left behind and does not use this object.
class DiskSurvey
{
public:
    static constexpr std::chrono::seconds TimeToCount{2};

    /// Starts the survey. Reads the disks' records here and does not keep them. `host` must outlive the
    /// survey's thread.
    DiskSurvey(platform::Host &host, const std::vector<std::shared_ptr<ORVHddInfo>> &disks);
    ~DiskSurvey();
    DiskSurvey(const DiskSurvey &) = delete;
    DiskSurvey &operator=(const DiskSurvey &) = delete;

    /// True when all contents are found out, or the time is over.
    bool isOver() const;

    /// Waits at most `limit` until `isOver` returns true. Returns what `isOver` returns then.
    bool waitUntilOver(std::chrono::milliseconds limit) const;

    /// Returns one content for each disk, in the order of the disks, as far as it is known by now.
    std::vector<DiskContent> results() const;

private:
    struct Shared;

    std::shared_ptr<Shared> m_shared;
};

} // namespace orvana

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
    /// Nothing: the system examined the disk and recognised nothing on it, or all its volumes are mounted and
    /// hold no entry but "lost+found".
    bool isBlank = false;

    /// All of it is mounted and could be read. What is unknown counts as something.
    bool isKnown = false;

    std::uint64_t usedBytes = 0;  ///< of its mounted volumes
    std::uint64_t files = 0;      ///< found on them so far
    bool isCountComplete = false; ///< `files` is all there are

    bool operator==(const DiskContent &) const = default;
};

/// "12.50 GB in 3402 files", "12.50 GB in at least 3402 files", "something that is not mounted".
std::string contentText(const DiskContent &content);

/// Finds out what disks hold, on a thread of its own. Main thread only.
///
/// It takes two seconds at most, whatever the disks hold; a disk that does not answer holds something. A
/// thread that hangs in the kernel is left behind and touches nothing of this object.
class DiskSurvey
{
public:
    static constexpr std::chrono::seconds TimeToCount{2};

    /// Starts. The disks' records are read here and not kept; `host` must outlive the survey's thread.
    DiskSurvey(platform::Host &host, const std::vector<std::shared_ptr<ORVHddInfo>> &disks);
    ~DiskSurvey();
    DiskSurvey(const DiskSurvey &) = delete;
    DiskSurvey &operator=(const DiskSurvey &) = delete;

    /// True when all is found out, or the time is over.
    bool isOver() const;

    /// Waits for that, at most `limit`.
    bool waitUntilOver(std::chrono::milliseconds limit) const;

    /// One for each disk, in their order, as far as it is known by now.
    std::vector<DiskContent> results() const;

private:
    struct Shared;

    std::shared_ptr<Shared> m_shared;
};

} // namespace orvana

#pragma once

#include "platform/VolumeFiles.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace orvana
{

/// Learns when data is on the disk. Called on the pump's thread.
class SyncListener
{
public:
    virtual ~SyncListener() = default;

    /// Everything that was written before this call is on the disk after the next `syncEnded`.
    virtual void syncStarts() = 0;

    /// With `isOnDisk` false, data was lost.
    virtual void syncEnded(bool isOnDisk) = 0;
};

/// Keeps written data moving to one volume's disk while the copy goes on, on a thread of its own, and syncs
/// the volume at the end. Its functions are called by the copy thread or a worker, one at a time.
///
/// Many small files are written out together: the pump only counts their bytes, and syncs the volume whenever
/// enough bytes have gathered. A large file is written out range by range. A range that is on the disk is
/// dropped from memory, so that a run never pushes everything else out of memory.
class WriteOutPump
{
public:
    /// `volume` must outlive the pump.
    explicit WriteOutPump(platform::Folder &volume);

    /// Waits for the sync that is running; nothing can interrupt a sync.
    ~WriteOutPump() = default;

    /// Tells `listener` of every sync from now on. It must outlive the pump.
    void setListener(SyncListener *listener);

    /// Notes that `bytes` were written.
    void noteWritten(std::uint64_t bytes);

    /// Notes that a range of a large file was written. The file must stay open until `leave`. Returns the
    /// first error in moving earlier ranges of the file to the disk.
    platform::Expected<void> noteRange(platform::File &file, std::uint64_t offset, std::uint64_t length);

    /// Lets go of a file that is about to be closed. Ranges that are still on their way are synced with the
    /// volume. Returns the first error in moving ranges of the file to the disk.
    platform::Expected<void> leave(platform::File &file);

    /// Waits until few enough bytes are on their way to the disk, or until `token` is stopped.
    void waitForRoom(const std::stop_token &token);

    void startFinalSync();

    struct Outcome
    {
        platform::Expected<void> result; ///< the first error of any sync
        std::uint64_t nanoseconds;       ///< length of the final sync
    };

    /// Waits for the final sync. Returns nullopt when `token` was stopped first.
    std::optional<Outcome> waitForFinalSync(const std::stop_token &token);

private:
    struct Range
    {
        std::uint64_t offset;
        std::uint64_t length;
    };
    using Lock = std::unique_lock<std::mutex>;

    void run(const std::stop_token &ownEnd);
    bool hasWork() const;
    void syncOnce(Lock &lock);
    void moveRanges(Lock &lock);
    void giveUp(Lock &lock);

    platform::Folder &m_volume;
    std::mutex m_mutex;
    SyncListener *m_listener = nullptr;
    std::condition_variable_any m_changed;
    std::uint64_t m_waiting = 0;  // bytes for the next sync
    std::uint64_t m_underWay = 0; // bytes of the running sync
    bool m_isLast = false;
    std::optional<Outcome> m_outcome;
    platform::Expected<void> m_result;

    platform::File *m_file = nullptr; // the large file in hand
    bool m_isMoving = false;          // the thread works on `m_file`, without the lock
    std::deque<Range> m_written;      // its ranges that only memory holds
    std::deque<Range> m_flying;       // its ranges on their way
    std::uint64_t m_flyingBytes = 0;  // bytes of `m_flying`
    std::uint64_t m_rangeBytes = 0;   // bytes of `m_written` and `m_flying` together
    platform::Expected<void> m_fileResult;

    std::jthread m_thread; // last: it uses all of the above
};

} // namespace orvana

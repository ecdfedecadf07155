#include "duplicate/engine/WriteOutPump.h"

#include <cerrno>
#include <chrono>
#include <new>
#include <utility>

namespace orvana
{

using platform::Expected;
using platform::File;

namespace
{

// Enough bytes to keep a disk busy, and few enough for the first sync to start early.
constexpr std::uint64_t WorthASync = 16'777'216;
// The copy waits while more bytes than these are still to be written out: about two seconds of a fast disk.
constexpr std::uint64_t MaxBytesBehind = 268'435'456;
// The copy of a large file waits while more of its bytes than these are still to be written out. So its
// progress shows how far the disk is, and not the memory.
constexpr std::uint64_t MaxRangeBytesBehind = 67'108'864;
// The pump waits for the oldest range of a large file when more bytes than these are on their way to the
// disk.
constexpr std::uint64_t MaxBytesInFlight = 33'554'432;

// While a copy waits, the pump must have work to do, whatever the size of a block.
static_assert(MaxBytesInFlight < MaxRangeBytesBehind);
static_assert(WorthASync < MaxBytesBehind);

} // namespace

WriteOutPump::WriteOutPump(platform::Folder &volume)
    : m_volume(volume), m_thread([this](const std::stop_token &ownEnd) { run(ownEnd); })
{
}

void WriteOutPump::setListener(SyncListener *listener)
{
    const std::lock_guard lock(m_mutex);
    m_listener = listener;
}

void WriteOutPump::noteWritten(std::uint64_t bytes)
{
    const std::lock_guard lock(m_mutex);
    const bool wasEnough = m_waiting >= WorthASync;
    m_waiting += bytes;
    if (!wasEnough && m_waiting >= WorthASync)
        m_changed.notify_all();
}

Expected<void> WriteOutPump::noteRange(File &file, std::uint64_t offset, std::uint64_t length)
{
    const std::lock_guard lock(m_mutex);
    m_file = &file;
    m_written.push_back({offset, length});
    m_rangeBytes += length;
    m_changed.notify_all();
    return m_fileResult;
}

Expected<void> WriteOutPump::leave(File &file)
{
    Lock lock(m_mutex);
    if (m_file != &file)
        return {};
    m_changed.wait(lock, [this] { return !m_isMoving; });
    m_file = nullptr;
    m_written.clear();
    m_flying.clear();
    m_flyingBytes = 0;
    m_waiting += std::exchange(m_rangeBytes, 0);
    m_changed.notify_all();
    return std::exchange(m_fileResult, {});
}

void WriteOutPump::waitForRoom(const std::stop_token &token)
{
    Lock lock(m_mutex);
    m_changed.wait(lock, token, [this] {
        return m_outcome || (m_waiting + m_underWay <= MaxBytesBehind && m_rangeBytes <= MaxRangeBytesBehind);
    });
}

void WriteOutPump::startFinalSync()
{
    const std::lock_guard lock(m_mutex);
    m_isLast = true;
    m_changed.notify_all();
}

std::optional<WriteOutPump::Outcome> WriteOutPump::waitForFinalSync(const std::stop_token &token)
{
    Lock lock(m_mutex);
    m_changed.wait(lock, token, [this] { return m_outcome.has_value(); });
    return m_outcome;
}

void WriteOutPump::syncOnce(Lock &lock)
{
    m_underWay = std::exchange(m_waiting, 0);
    const bool isLast = m_isLast;
    auto *listener = m_listener;
    lock.unlock();
    if (listener)
        listener->syncStarts();
    const auto start = std::chrono::steady_clock::now();
    const auto synced = m_volume.syncVolume();
    const std::chrono::nanoseconds length = std::chrono::steady_clock::now() - start;
    if (listener)
        listener->syncEnded(synced.has_value());
    lock.lock();
    m_underWay = 0;
    if (m_result && !synced)
        m_result = synced;
    if (isLast)
        m_outcome = Outcome{m_result, static_cast<std::uint64_t>(length.count())};
    m_changed.notify_all();
}

// Sends the written ranges on their way. Waits for the oldest range once enough bytes are on their way.
void WriteOutPump::moveRanges(Lock &lock)
{
    auto written = std::exchange(m_written, {});
    for (const auto &range : written) {
        m_flying.push_back(range);
        m_flyingBytes += range.length;
    }
    std::optional<Range> oldest;
    if (m_flyingBytes > MaxBytesInFlight) {
        oldest = m_flying.front();
        m_flying.pop_front();
        m_flyingBytes -= oldest->length;
    }
    File &file = *m_file;
    auto *listener = m_listener;
    m_isMoving = true;
    lock.unlock();
    Expected<void> moved;
    for (const auto &range : written) {
        if (moved)
            moved = file.startWriteOut(range.offset, range.length);
    }
    if (moved && oldest) {
        moved = file.finishWriteOut(oldest->offset, oldest->length);
        file.dropCached(oldest->offset, oldest->length);
    }
    if (!moved && listener)
        listener->syncEnded(false);
    lock.lock();
    m_isMoving = false;
    m_rangeBytes -= oldest ? oldest->length : 0;
    if (m_fileResult && !moved)
        m_fileResult = moved;
    m_changed.notify_all();
}

bool WriteOutPump::hasWork() const
{
    const bool rangesWait = m_file && (!m_written.empty() || m_flyingBytes > MaxBytesInFlight);
    return m_isLast || m_waiting >= WorthASync || rangesWait;
}

void WriteOutPump::run(const std::stop_token &ownEnd)
{
    Lock lock(m_mutex);
    try {
        while (!m_outcome) {
            m_changed.wait(lock, ownEnd, [this] { return hasWork(); });
            if (ownEnd.stop_requested())
                return;
            if (m_isLast || m_waiting >= WorthASync)
                syncOnce(lock);
            else
                moveRanges(lock);
        }
    } catch (const std::bad_alloc &) {
        giveUp(lock);
    }
}

// There is no memory to continue. From here on nobody waits for the pump, and the volume counts as not
// written out.
void WriteOutPump::giveUp(Lock &lock)
{
    if (!lock.owns_lock())
        lock.lock();
    m_isMoving = false;
    m_result = platform::failure(ENOMEM);
    m_fileResult = m_result;
    m_outcome = Outcome{m_result, 0};
    m_changed.notify_all();
}

} // namespace orvana

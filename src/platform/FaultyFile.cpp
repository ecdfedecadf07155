#include "platform/FaultyFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

namespace orvana::platform
{

namespace
{

// Subtracts `bytes` from the allowance. Returns false when less than `bytes` is left. A negative allowance
// has no limit.
bool spend(std::atomic<std::int64_t> &allowance, std::size_t bytes)
{
    auto left = allowance.load();
    const auto wanted = static_cast<std::int64_t>(bytes);
    while (left >= 0) {
        if (left < wanted)
            return false;
        if (allowance.compare_exchange_weak(left, left - wanted))
            return true;
    }
    return true;
}

// A delay that is changed while it lasts counts at once, and a volume that goes away keeps nobody waiting.
void waitAsAsked(VolumeFaults &faults)
{
    if (faults.delayMilliseconds <= 0)
        return;
    ++faults.waiting;
    const auto start = std::chrono::steady_clock::now();
    while (!faults.gone) {
        const auto left = start + std::chrono::milliseconds(faults.delayMilliseconds.load()) -
                          std::chrono::steady_clock::now();
        if (left <= left.zero())
            break;
        std::this_thread::sleep_for(
            std::min<std::chrono::steady_clock::duration>(left, std::chrono::milliseconds(20)));
    }
    --faults.waiting;
}

} // namespace

Expected<Attributes> FaultyFile::attributes() const
{
    return m_real->attributes();
}

Expected<std::size_t> FaultyFile::read(std::span<std::byte> into, std::uint64_t offset)
{
    waitAsAsked(m_faults);
    if (m_faults.gone)
        return failure(ENODEV);
    auto count = m_real->read(into, offset);
    if (count && !spend(m_faults.readErrorAfter, *count))
        return failure(EIO);
    const auto wrong = m_faults.wrongByte.load();
    const auto start = static_cast<std::int64_t>(offset);
    if (count && wrong >= start && wrong < start + static_cast<std::int64_t>(*count))
        into[static_cast<std::size_t>(wrong - start)] ^= std::byte{1};
    return count;
}

void FaultyFile::willRead(std::uint64_t offset, std::uint64_t length)
{
    m_real->willRead(offset, length);
}

Expected<void> FaultyFile::write(std::span<const std::byte> bytes, std::uint64_t offset)
{
    waitAsAsked(m_faults);
    if (m_faults.gone)
        return failure(ENODEV);
    if (!spend(m_faults.goneAfter, bytes.size())) {
        m_faults.gone = true;
        return failure(ENODEV);
    }
    if (!spend(m_faults.capacity, bytes.size()))
        return failure(ENOSPC);
    if (!spend(m_faults.writeErrorAfter, bytes.size()))
        return failure(EIO);
    return m_real->write(bytes, offset);
}

Expected<void> FaultyFile::cutTo(std::uint64_t size)
{
    if (m_faults.gone)
        return failure(ENODEV);
    if (m_faults.writeErrorAfter == 0)
        return failure(EIO);
    return m_real->cutTo(size);
}

Expected<void> FaultyFile::growTo(std::uint64_t size)
{
    if (m_faults.gone)
        return failure(ENODEV);
    return m_real->growTo(size);
}

std::vector<Range> FaultyFile::dataIn(const Range &range) const
{
    return m_real->dataIn(range);
}

Expected<void> FaultyFile::makeHole(const Range &range)
{
    if (m_faults.gone)
        return failure(ENODEV);
    return m_real->makeHole(range);
}

Expected<Metadata> FaultyFile::metadata(Keep keep) const
{
    return m_real->metadata(keep);
}

MissingParts FaultyFile::apply(const Metadata &metadata, Keep keep)
{
    if (!m_faults.isPlain || keep != Keep::All)
        return m_real->apply(metadata, keep);
    auto missing = m_real->apply(metadata, Keep::Dates);
    missing.add(Part::Owner);
    if (!metadata.extended.empty())
        missing.add(Part::ExtendedAttributes);
    return missing;
}

Expected<void> FaultyFile::startWriteOut(std::uint64_t offset, std::uint64_t length)
{
    return m_real->startWriteOut(offset, length);
}

Expected<void> FaultyFile::finishWriteOut(std::uint64_t offset, std::uint64_t length)
{
    if (m_faults.writeOutError || m_faults.gone)
        return failure(EIO);
    return m_real->finishWriteOut(offset, length);
}

Expected<void> FaultyFile::sync()
{
    if (m_faults.gone || m_faults.syncError)
        return failure(EIO);
    return m_real->sync();
}

bool FaultyFile::isOutOfMemory() const
{
    return m_real->isOutOfMemory();
}

void FaultyFile::dropCached(std::uint64_t offset, std::uint64_t length)
{
    m_real->dropCached(offset, length);
}

Expected<void> FaultyFile::close()
{
    auto closed = m_real->close();
    if (m_faults.closeError && m_access != Access::Read)
        return failure(EIO);
    return closed;
}

} // namespace orvana::platform

#include "duplicate/FileComparer.h"

#include "duplicate/RunState.h"
#include "duplicate/SourceTime.h"
#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "foundation/WorkerThread.h"

#include <chrono>
#include <cstring>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::Expected;
using platform::File;

namespace
{

constexpr const char *Verifying = "Verifying File ...";
constexpr const char *Failed = "Verifying File ... Failed";
constexpr const char *Succeeded = "Verifying File ... Succeeded";

// Files that are no longer may lie in their inode, whose memory nobody can drop.
constexpr std::uint64_t SmallestBlock = 4096;

// Drops what memory holds of the file; true when it was seen to be gone. Pages that another processor has
// just put there can take a second try.
bool dropped(File &file)
{
    for (int tries = 0; tries < 3; ++tries) {
        file.dropCached(0, File::ToTheEnd);
        if (file.isOutOfMemory())
            return true;
    }
    return false;
}

class VerifyTimer
{
public:
    explicit VerifyTimer(RunState &run) : m_run(run) {}
    ~VerifyTimer() { m_run.addVerifyTime(std::chrono::steady_clock::now() - m_start); }
    VerifyTimer(const VerifyTimer &) = delete;
    VerifyTimer &operator=(const VerifyTimer &) = delete;

private:
    RunState &m_run;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

} // namespace

int FileComparer::compare(const std::string &source, const OutArray &copies)
{
    const VerifyTimer timer(m_run);
    m_run.postMessage(Verifying);
    const auto from = m_run.sources().openFile(source, Access::Read);
    if (!from) {
        systemLog("Open of " + displayPath(source) + " for reading failed");
        for (std::size_t i = 0; i < m_run.destinationCount() && i < copies.size(); ++i) {
            if (copies[i])
                m_run.report().unverified(i, source, "The source cannot be opened: " + from.error().reason());
        }
        return -1;
    }
    (*from)->dropCached(0, File::ToTheEnd);
    openCopies(source, copies);
    const auto attributes = (*from)->attributes();
    const std::uint64_t size = attributes ? attributes->size : 0;
    m_sideBySide = size > BlockSize || m_diskIsRead;
    compareBlocks(**from, size);
    if (isSourceChanged(**from))
        noteChangedSource(source);
    noteSample(source, copies, size);
    noteResults(source);
    m_run.postMessage(Succeeded);
    return 1;
}

void FileComparer::openCopies(const std::string &source, const OutArray &copies)
{
    m_copies.resize(m_run.destinationCount());
    for (std::size_t i = 0; i < m_copies.size(); ++i) {
        auto &copy = m_copies[i];
        copy.file.reset();
        copy.error.reset();
        copy.sourceError.reset();
        copy.differences = 0;
        if (i >= copies.size() || !copies[i])
            continue;
        auto opened = m_run.destination(i).openFile(*copies[i], Access::Read);
        if (opened) {
            copy.file = std::move(*opened);
            if (!copy.block)
                copy.block = std::make_unique_for_overwrite<std::byte[]>(BlockSize);
        } else if (m_run.isCopiedHere(i))
            m_run.report().unverified(i, source, "The copy cannot be opened: " + opened.error().reason());
    }
    m_diskIsRead = false;
    // All are sent on their way before the first is waited for.
    for (auto &copy : m_copies) {
        if (copy.file)
            (void)copy.file->startWriteOut(0, File::ToTheEnd);
    }
    for (std::size_t i = 0; i < m_copies.size(); ++i)
        readFromDisk(i, source);
}

void FileComparer::readFromDisk(std::size_t index, const std::string &source)
{
    auto &copy = m_copies[index];
    if (!copy.file)
        return;
    const auto traits = m_run.destination(index).traits();
    const auto written = copy.file->finishWriteOut(0, File::ToTheEnd);
    if (!written && m_run.isCopiedHere(index))
        m_run.takeBack(index, source, written.error());
    // A copy that was seen to be gone from memory is read from the disk. Any other may come from memory.
    const bool isGone = !traits.isMemory && dropped(*copy.file);
    m_diskIsRead = m_diskIsRead || isGone;
    const auto size = copy.file->attributes();
    const bool mayLieInItsInode = traits.keepsSmallFilesInInodes && (!size || size->size <= SmallestBlock);
    m_run.report().verifiedFrom(index, isGone && traits.readsBackFromDisk && !mayLieInItsInode
                                           ? VerifiedFrom::Disk
                                           : VerifiedFrom::Cache);
}

void FileComparer::compareBlocks(File &from, std::uint64_t size)
{
    std::uint64_t offset = 0;
    int inHand = 0;
    WorkerThread::exitIfCancelled();
    auto count = from.read(m_run.block(inHand), 0);
    while (count && *count > 0) {
        const std::span<const std::byte> block = m_run.block(inHand).first(*count);
        const auto ahead = compareAndReadAhead(from, block, offset, 1 - inHand);
        tellDifferences(offset);
        m_run.report().blockCompared(*count);
        offset += *count;
        m_run.postFileProgress(offset, size);
        WorkerThread::exitIfCancelled();
        inHand = 1 - inHand;
        count = ahead;
    }
    if (!count)
        tellUnreadableSource(count.error());
}

Expected<std::size_t> FileComparer::compareAndReadAhead(File &from, std::span<const std::byte> block,
                                                        std::uint64_t offset, int spare)
{
    const auto next = offset + block.size();
    if (!m_sideBySide) {
        for (std::size_t i = 0; i < m_copies.size(); ++i)
            compareBlock(i, block, offset);
        return from.read(m_run.block(spare), next);
    }
    const Lanes::Work work = [&](std::size_t lane) { compareBlock(lane, block, offset); };
    if (block.size() == BlockSize)
        from.willRead(next, BlockSize);
    Expected<std::size_t> ahead;
    m_run.lanes().doBeside(work, m_copies.size(), m_copies.size(),
                           [&] { ahead = from.read(m_run.block(spare), next); });
    return ahead;
}

void FileComparer::compareBlock(std::size_t index, std::span<const std::byte> block, std::uint64_t offset)
{
    auto &copy = m_copies[index];
    copy.differsHere = false;
    if (!copy.file)
        return;
    // The disk goes on with the next block while this one is compared.
    if (block.size() == BlockSize)
        copy.file->willRead(offset + BlockSize, BlockSize);
    const auto count = copy.file->read({copy.block.get(), BlockSize}, offset);
    if (!count)
        copy.error = count.error();
    copy.differsHere =
        !count || *count != block.size() || std::memcmp(copy.block.get(), block.data(), block.size()) != 0;
}

void FileComparer::tellDifferences(std::uint64_t offset)
{
    for (auto &copy : m_copies) {
        if (!copy.differsHere)
            continue;
        m_run.postMessage(Failed);
        if (copy.differences++ == 0)
            copy.firstOffset = offset;
    }
}

// The copies may be good; what cannot be read is the source.
void FileComparer::tellUnreadableSource(const platform::FileError &error)
{
    for (auto &copy : m_copies) {
        if (!copy.file)
            continue;
        m_run.postMessage(Failed);
        copy.sourceError = error;
    }
}

// Notes the file's first block, and of a large file one block each 64 MiB, for every destination on which the
// file is good so far.
void FileComparer::noteSample(const std::string &source, const OutArray &copies, std::uint64_t size)
{
    if (size == 0 || !m_run.sourceInHand())
        return;
    auto good = copies;
    for (std::size_t i = 0; i < good.size(); ++i) {
        const bool isGood = i < m_copies.size() && m_copies[i].file && !m_copies[i].error &&
                            m_copies[i].differences == 0 && !m_run.hasFailed(i);
        if (!isGood)
            good[i].reset();
    }
    constexpr std::uint64_t Between = 64 * BlockSize;
    for (std::uint64_t offset = 0; offset < size; offset += Between)
        m_samples.note(source, *m_run.sourceInHand(), good, offset);
}

// Between the copy and the end of the comparison nobody may have written to the source.
bool FileComparer::isSourceChanged(const File &from) const
{
    const auto &copied = m_run.sourceInHand();
    const auto now = from.attributes();
    return copied && (!now || !isUnchanged(*copied, *now));
}

void FileComparer::noteChangedSource(const std::string &source)
{
    for (std::size_t i = 0; i < m_copies.size(); ++i) {
        if (m_copies[i].file && !m_run.hasFailed(i))
            m_run.sourceChanged(i, source);
    }
}

void FileComparer::noteResults(const std::string &source)
{
    for (std::size_t i = 0; i < m_copies.size(); ++i) {
        auto &copy = m_copies[i];
        const auto file = std::exchange(copy.file, nullptr);
        // One that failed is compared, but told as failed already.
        if (!file || m_run.hasFailed(i))
            continue;
        if (copy.error)
            m_run.report().unverified(i, source, "The copy cannot be read: " + copy.error->reason());
        else if (copy.differences == 0 && copy.sourceError)
            m_run.report().unverified(i, source, "The source cannot be read: " + copy.sourceError->reason());
        else if (copy.differences > 0)
            m_run.report().mismatched(i, source, copy.firstOffset, copy.differences);
        else
            ++m_run.tally(i).verified;
    }
}

} // namespace orvana

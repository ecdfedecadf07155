#include "duplicate/engine/FileComparer.h"

#include "duplicate/engine/FileRepair.h"
#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SourceTime.h"
#include "duplicate/engine/Target.h"
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

// Files up to this size may lie in their inode, and nobody can drop an inode from memory.
constexpr std::uint64_t SmallestBlock = 4096;

// A disk on which more blocks of one file are wrong is not repaired block by block.
constexpr std::size_t MostBadBlocks = 4096;

// Drops the file's content from memory. Returns true when the content was seen to be gone. Pages that another
// processor has just put into memory can take a second try.
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
    explicit VerifyTimer(RunContext &run) : m_run(run) {}
    ~VerifyTimer() { m_run.addVerifyTime(std::chrono::steady_clock::now() - m_start); }
    VerifyTimer(const VerifyTimer &) = delete;
    VerifyTimer &operator=(const VerifyTimer &) = delete;

private:
    RunContext &m_run;
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
        m_run.forEachCopy(copies, [&](Target &target, const std::string &) {
            m_run.report().unverified(target.index, source,
                                      "The source cannot be opened: " + from.error().reason());
        });
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
    else if (m_run.manner().repair)
        FileRepair(m_run).repair(**from, source, copies);
    noteSample(source, copies, size);
    noteResults(source);
    m_run.postMessage(Succeeded);
    return 1;
}

void FileComparer::openCopies(const std::string &source, const OutArray &copies)
{
    for (auto &target : m_run.targets()) {
        auto &copy = target.comparison;
        auto block = std::move(copy.block);
        copy = {};
        copy.block = std::move(block);
    }
    m_run.forEachCopy(copies, [&](Target &target, const std::string &path) {
        auto &copy = target.comparison;
        auto opened = target.destination.openFile(path, Access::Read);
        if (opened) {
            copy.file = std::move(*opened);
            if (const auto *evidence = m_run.evidence())
                copy.digest.emplace(evidence->format());
            if (!copy.block)
                copy.block = std::make_unique_for_overwrite<std::byte[]>(BlockSize);
        } else if (target.isCopied) {
            m_run.report().unverified(target.index, source,
                                      "The copy cannot be opened: " + opened.error().reason());
        }
    });
    m_diskIsRead = false;
    // All copies are sent on their way before the first copy is waited for.
    for (auto &target : m_run.targets()) {
        if (target.comparison.file)
            (void)target.comparison.file->startWriteOut(0, File::ToTheEnd);
    }
    for (auto &target : m_run.targets())
        readFromDisk(target, source);
}

void FileComparer::readFromDisk(Target &target, const std::string &source)
{
    auto &copy = target.comparison;
    if (!copy.file)
        return;
    const auto traits = target.destination.traits();
    const auto written = copy.file->finishWriteOut(0, File::ToTheEnd);
    if (!written && target.isCopied)
        m_run.takeBack(target, source, written.error());
    // A copy that was seen to be gone from memory is read from the disk. Any other copy may come from memory.
    const bool isGone = !traits.isMemory && dropped(*copy.file);
    m_diskIsRead = m_diskIsRead || isGone;
    const auto size = copy.file->attributes();
    const bool mayLieInItsInode = traits.keepsSmallFilesInInodes && (!size || size->size <= SmallestBlock);
    copy.isFromDisk = isGone && traits.readsBackFromDisk && !mayLieInItsInode;
    m_run.report().verifiedFrom(target.index, copy.isFromDisk ? VerifiedFrom::Disk : VerifiedFrom::Cache);
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
        for (auto &target : m_run.targets())
            compareBlock(target, block, offset);
        return from.read(m_run.block(spare), next);
    }
    const Workers::Work work = [&](std::size_t index) { compareBlock(m_run.target(index), block, offset); };
    if (block.size() == BlockSize)
        from.willRead(next, BlockSize);
    Expected<std::size_t> ahead;
    m_run.workers().doBeside(work, m_run.targets().size(), m_run.targets().size(),
                             [&] { ahead = from.read(m_run.block(spare), next); });
    return ahead;
}

void FileComparer::compareBlock(Target &target, std::span<const std::byte> block, std::uint64_t offset)
{
    auto &copy = target.comparison;
    copy.differsHere = false;
    if (!copy.file)
        return;
    const BusyTime::Work work(target.tally.busy);
    // The disk reads the next block while this block is compared.
    if (block.size() == BlockSize)
        copy.file->willRead(offset + BlockSize, BlockSize);
    const auto count = copy.file->read({copy.block.get(), BlockSize}, offset);
    if (!count)
        copy.error = count.error();
    else if (copy.digest)
        copy.digest->add({reinterpret_cast<const char *>(copy.block.get()), *count});
    copy.differsHere =
        !count || *count != block.size() || std::memcmp(copy.block.get(), block.data(), block.size()) != 0;
}

void FileComparer::tellDifferences(std::uint64_t offset)
{
    for (auto &target : m_run.targets()) {
        auto &copy = target.comparison;
        if (!copy.differsHere)
            continue;
        m_run.postMessage(Failed);
        if (copy.differences++ == 0)
            copy.firstOffset = offset;
        if (m_run.manner().repair && copy.badBlocks.size() < MostBadBlocks)
            copy.badBlocks.push_back(offset);
    }
}

// The source cannot be read. The copies may be good.
void FileComparer::tellUnreadableSource(const platform::FileError &error)
{
    for (auto &target : m_run.targets()) {
        if (!target.comparison.file)
            continue;
        m_run.postMessage(Failed);
        target.comparison.sourceError = error;
    }
}

// Notes the file's first block, and of a large file one block every 64 MiB. They are noted for every
// destination on which the file is good so far.
void FileComparer::noteSample(const std::string &source, const OutArray &copies, std::uint64_t size)
{
    if (size == 0 || !m_run.sourceInHand())
        return;
    OutArray good(m_run.targets().size());
    m_run.forEachCopy(copies, [&](const Target &target, const std::string &path) {
        if (target.comparison.isGood() && !target.hasFailed)
            good[target.index] = path;
    });
    constexpr std::uint64_t Between = 64 * BlockSize;
    for (std::uint64_t offset = 0; offset < size; offset += Between)
        m_samples.note(source, *m_run.sourceInHand(), good, offset);
}

// True when somebody wrote to the source between the copy and the end of the comparison.
bool FileComparer::isSourceChanged(const File &from) const
{
    const auto &copied = m_run.sourceInHand();
    const auto now = from.attributes();
    return copied && (!now || !isUnchanged(*copied, *now));
}

void FileComparer::noteChangedSource(const std::string &source)
{
    for (auto &target : m_run.targets()) {
        if (target.comparison.file && !target.hasFailed)
            m_run.sourceChanged(target, source);
    }
}

void FileComparer::noteVerified(Target &target)
{
    target.isVerified = true;
    ++target.tally.verified;
}

void FileComparer::noteResults(const std::string &source)
{
    auto &report = m_run.report();
    for (auto &target : m_run.targets()) {
        auto &copy = target.comparison;
        const auto file = std::exchange(copy.file, nullptr);
        // A failed copy is compared too, but it is already reported as failed.
        if (!file || target.hasFailed)
            continue;
        if (copy.error)
            report.unverified(target.index, source, "The copy cannot be read: " + copy.error->reason());
        else if (copy.differences == 0 && copy.sourceError)
            report.unverified(target.index, source,
                              "The source cannot be read: " + copy.sourceError->reason());
        else if (copy.differences > 0)
            report.mismatched(target.index, source, copy.firstOffset, copy.differences);
        else if (copy.digest && copy.digest->text() != m_run.evidence()->digest())
            report.unverified(target.index, source,
                              "What was read back has another digest than what was copied");
        else
            noteVerified(target);
    }
}

} // namespace orvana

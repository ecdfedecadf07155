#include "duplicate/engine/FileDuplicator.h"

#include "duplicate/engine/FileComparer.h"
#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SourceTime.h"
#include "duplicate/engine/Target.h"
#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "foundation/WorkerThread.h"

namespace orvana
{

using platform::Access;
using platform::Attributes;
using platform::Expected;
using platform::File;
using platform::FileError;

namespace
{

// Files above this size go to their disks range by range.
constexpr std::uint64_t LargeFile = 64 * BlockSize;

// A source may grow while it is read. It is copied at most this far beyond the length that it had.
constexpr std::uint64_t MostGrowth = 64 * BlockSize;

bool isStill(const File &source, const Attributes &before)
{
    const auto now = source.attributes();
    return now && isUnchanged(before, *now);
}

} // namespace

FileDuplicator::FileDuplicator(RunContext &run, FileComparer &comparer)
    : m_run(run), m_comparer(comparer), m_outputs(run), m_readAhead(run.sources())
{
}

int FileDuplicator::copy(const std::string &source, const OutArray &copies, const Attributes &like)
{
    m_run.startFile();
    m_outputs.start(source);
    createParents(copies, like);
    m_run.postMessage("Duplicating " + displayPath(source));
    auto ahead = m_readAhead.take(source);
    const auto from = ahead ? std::move(ahead->file) : m_run.sources().openFile(source, Access::Read);
    if (!from) {
        systemLog("Open of " + displayPath(source) + " for reading failed");
        failForAll(source, copies, from.error());
        noteEvidence(copies, false);
        return -1;
    }
    copyContent(**from, ahead ? &*ahead : nullptr, copies, like);
    m_outputs.closeAll();
    if (auto *evidence = m_run.evidence()) {
        evidence->endFile();
        if (!m_digestBefore.empty())
            evidence->adoptDigest(m_digestBefore.substr(m_digestBefore.find(':') + 1));
    }
    const bool isVerified = m_run.setup().verifyFiles();
    if (isVerified)
        verify(source, copies);
    noteEvidence(copies, isVerified);
    noteJournal(copies, isVerified);
    if (auto *links = m_run.hardLinks())
        links->note(copies);
    return 1;
}

// Copies that an earlier run has read back from the disk, and that are unchanged, count as verified.
void FileDuplicator::verify(const std::string &source, const OutArray &copies)
{
    OutArray others = copies;
    bool isAnyLeft = false;
    bool isAnyDone = false;
    std::uint64_t size = 0;
    m_run.forEachCopy(copies, [&](Target &target, const std::string &) {
        if (target.work != CopyWork::None || !target.isVerifiedBefore || target.hasFailed) {
            isAnyLeft = true;
            return;
        }
        isAnyDone = true;
        others[target.index].reset();
        target.isVerified = true;
        ++target.tally.verified;
        size = target.copyInHand->size;
        m_run.report().verifiedFrom(target.index, VerifiedFrom::Disk);
    });
    if (isAnyLeft || !isAnyDone)
        m_comparer.compare(source, others);
    else
        m_run.report().blockCompared(size);
}

// Decides what is to be done for each copy. Returns false if nothing is left to be done for any.
bool FileDuplicator::decide(const OutArray &copies)
{
    m_digestBefore.clear();
    decideByJournal(copies);
    if (auto *links = m_run.hardLinks())
        links->join(m_outputs.source(), copies);
    bool isAnyLeft = false;
    bool isAnyDone = false;
    m_run.forEachCopy(copies, [&](const Target &target, const std::string &) {
        const bool isDone = target.work == CopyWork::None;
        isAnyDone = isAnyDone || isDone;
        isAnyLeft = isAnyLeft || !isDone;
    });
    m_run.forEachCopy(copies, [&](Target &target, const std::string &) {
        if (target.work == CopyWork::None)
            noteThere(target);
        if (!isAnyLeft)
            m_digestBefore = target.digestBefore;
    });
    return isAnyLeft || !isAnyDone;
}

void FileDuplicator::decideByJournal(const OutArray &copies)
{
    const auto *journal = m_run.journal();
    const auto &source = m_run.sourceInHand();
    if (!journal || !source)
        return;
    const auto *evidence = m_run.evidence();
    const CopyDemand demand{evidence ? std::string(nameOf(evidence->format())) : std::string(),
                            m_run.manner().keep};
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        if (const auto place = target.destination.placeOf(copy))
            journal->decide(target, *place, *source, demand);
    });
}

void FileDuplicator::noteThere(Target &target)
{
    target.isCopied = true;
    ++target.tally.copied;
    if (target.isFurtherName)
        return;
    target.isThereBefore = true;
    ++target.tally.alreadyThere;
    target.tally.bytesThere += target.copyInHand->size;
    target.written.add(*target.copyInHand, m_outputs.source());
}

void FileDuplicator::noteJournal(const OutArray &copies, bool isVerified)
{
    auto *journal = m_run.journal();
    const auto &source = m_run.sourceInHand();
    if (!journal || !source)
        return;
    const auto *evidence = m_run.evidence();
    const auto digest =
        evidence ? std::string(nameOf(evidence->format())) + ":" + evidence->digest() : std::string();
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        const auto place = target.destination.placeOf(copy);
        const bool isKnown = target.work == CopyWork::None && (!isVerified || target.isVerifiedBefore);
        if (!place || isKnown || !target.isCopied || target.hasFailed || (isVerified && !target.isVerified))
            return;
        const auto check = !isVerified                    ? CopyCheck::None
                           : target.comparison.isFromDisk ? CopyCheck::FromDisk
                                                          : CopyCheck::FromMemory;
        journal->note(target, *place, *source, {digest, check, m_run.manner().keep});
    });
}

void FileDuplicator::noteEvidence(const OutArray &copies, bool isVerified)
{
    if (auto *evidence = m_run.evidence())
        evidence->noteFile(m_run.targets(), copies, m_run.sourceInHand(), isVerified);
}

void FileDuplicator::createParents(const OutArray &copies, const Attributes &like)
{
    for (auto &target : m_run.targets())
        target.parentError.reset();
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        const auto created = target.destination.createParent(copy, like);
        if (created)
            return;
        target.parentError = created.error();
        systemLog("Create " + displayPath(copy.substr(0, copy.rfind('/'))) + " Folder Fail \n");
    });
}

void FileDuplicator::failForAll(const std::string &source, const OutArray &copies, const FileError &error)
{
    m_run.forEachCopy(copies, [&](Target &target, const std::string &) {
        m_run.fileFailed(target, source, "The source cannot be opened: " + error.reason());
    });
}

void FileDuplicator::copyContent(File &from, const ReadAhead::Source *ahead, const OutArray &copies,
                                 const Attributes &like)
{
    // A file that was written to since it was read ahead is read again.
    if (ahead && !isStill(from, ahead->opened))
        ahead = nullptr;
    const auto attributes = ahead ? ahead->opened : attributesOnceOldEnough(from);
    m_mayChangeUnseen = attributes && mayChangeUnseen(*attributes);
    const std::uint64_t size = attributes ? attributes->size : 0;
    if (attributes) {
        m_run.sourceFiles().addDevice(attributes->device);
        m_run.rememberSource(*attributes);
    }
    m_run.countStartedFile(size);
    WorkerThread::exitIfCancelled();
    m_run.keeper().readSource(from);
    if (!decide(copies)) {
        if (size > 0)
            m_run.postFileProgress(size, size);
        return;
    }
    if (ahead)
        return copyAtOnce(from, ahead->content, size, copies, like);
    const auto count = from.read(m_run.block(0), 0);
    if (!count || *count == BlockSize) {
        openOutputs(copies, like, nullptr);
        m_outputs.tellNewErrors();
        copyBlocks(from, size, count);
        return;
    }
    // A read of less than a block is the whole file.
    copyAtOnce(from, m_run.block(0).first(*count), size, copies, like);
}

// Creates, writes and closes the copies of a small file in one go.
void FileDuplicator::copyAtOnce(File &from, Block block, std::uint64_t size, const OutArray &copies,
                                const Attributes &like)
{
    readBlockFacts(from, block, 0);
    m_outputs.noteRead(block.size());
    m_outputs.noteSource(hasSourceChanged(from, block.size()));
    openOutputs(copies, like, &block);
    m_outputs.tellNewErrors();
    if (!block.empty())
        m_run.postFileProgress(block.size(), size);
    m_outputs.noteInMemory(0, false);
}

void FileDuplicator::copyBlocks(File &from, std::uint64_t size, Expected<std::size_t> count)
{
    std::uint64_t offset = 0;
    int inHand = 0;
    // A source that grows without end is left at some point.
    while (count && *count > 0 && offset <= size + MostGrowth) {
        const Block block = m_run.block(inHand).first(*count);
        readBlockFacts(from, block, offset);
        const auto ahead = writeAndReadAhead(from, block, offset, 1 - inHand);
        m_outputs.noteInMemory(offset, size > LargeFile);
        m_outputs.tellNewErrors();
        offset += *count;
        m_outputs.noteRead(offset);
        m_run.postFileProgress(offset, size);
        WorkerThread::exitIfCancelled();
        inHand = 1 - inHand;
        count = ahead;
    }
    if (!count)
        m_outputs.failAll(count.error());
    m_outputs.noteSource(hasSourceChanged(from, offset));
}

// Notes what is needed of a block besides its content, before it is written.
void FileDuplicator::readBlockFacts(const File &from, Block block, std::uint64_t offset)
{
    const auto &source = m_run.sourceInHand();
    if (m_run.keeper().keepsAll() && source && source->allocated < source->size)
        m_outputs.noteData(from.dataIn({offset, block.size()}));
    if (m_run.manner().repair && m_run.setup().verifyFiles())
        m_run.blockMarks().add(block);
}

// A copy is good only when nobody wrote to the source while it was read.
bool FileDuplicator::hasSourceChanged(const File &from, std::uint64_t bytesRead) const
{
    const auto &before = m_run.sourceInHand();
    const auto after = from.attributes();
    return m_mayChangeUnseen || !before || !after || !isUnchanged(*before, *after) ||
           bytesRead != before->size;
}

void FileDuplicator::openOutputs(const OutArray &copies, const Attributes &like, const Block *wholeFile)
{
    const auto work = [&](Target &target) {
        if (target.index >= copies.size() || !copies[target.index])
            return;
        m_outputs.open(target, *copies[target.index], like);
        if (!wholeFile)
            return;
        if (!wholeFile->empty())
            m_outputs.write(target, *wholeFile, 0);
        m_outputs.close(target);
    };
    if (wholeFile && m_readAhead.isPlanned())
        m_run.shareBlockAnd(*wholeFile, work, [this] { m_readAhead.read(); });
    else
        m_run.shareBlock(wholeFile ? *wholeFile : Block(), work);
}

Expected<std::size_t> FileDuplicator::writeAndReadAhead(File &from, Block block, std::uint64_t offset,
                                                        int spare)
{
    Expected<std::size_t> ahead;
    m_run.shareBlockBeside(
        block, [&](Target &target) { m_outputs.write(target, block, offset); },
        [&] { ahead = from.read(m_run.block(spare), offset + block.size()); });
    return ahead;
}

} // namespace orvana

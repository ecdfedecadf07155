#include "duplicate/engine/FileDuplicator.h"

#include "duplicate/engine/FileComparer.h"
#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SourceTime.h"
#include "duplicate/engine/Target.h"
#include "foundation/DisplayPath.h"
#include "foundation/SystemLog.h"
#include "foundation/WorkerThread.h"

#include <chrono>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::Attributes;
using platform::Expected;
using platform::File;
using platform::FileError;
using platform::FileProblem;

namespace
{

// Files above this size go to their disks range by range.
constexpr std::uint64_t LargeFile = 64 * BlockSize;

// A source may grow while it is read. It is copied at most this far beyond the length that it had.
constexpr std::uint64_t MostGrowth = 64 * BlockSize;

} // namespace

int FileDuplicator::copy(const std::string &source, const OutArray &copies, const Attributes &like)
{
    m_source = source;
    m_written = 0;
    m_isSourceChanged = false;
    m_run.startFile();
    createParents(copies, like);
    m_run.postMessage("Duplicating " + displayPath(source));
    const auto from = m_run.sources().openFile(source, Access::Read);
    if (!from) {
        systemLog("Open of " + displayPath(source) + " for reading failed");
        failForAll(source, copies, from.error());
        noteEvidence(copies, false);
        return -1;
    }
    copyContent(**from, source, copies, like);
    closeOutputs(source);
    if (auto *evidence = m_run.evidence())
        evidence->endFile();
    const bool isVerified = m_run.setup().verifyFiles();
    if (isVerified)
        m_comparer.compare(source, copies);
    noteEvidence(copies, isVerified);
    return 1;
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

void FileDuplicator::copyContent(File &from, const std::string &source, const OutArray &copies,
                                 const Attributes &like)
{
    const auto attributes = attributesOnceOldEnough(from);
    m_mayChangeUnseen = attributes && mayChangeUnseen(*attributes);
    const std::uint64_t size = attributes ? attributes->size : 0;
    if (attributes) {
        m_run.sourceFiles().addDevice(attributes->device);
        m_run.rememberSource(*attributes);
    }
    m_run.countStartedFile(size);
    WorkerThread::exitIfCancelled();
    const auto count = from.read(m_run.block(0), 0);
    if (!count || *count == BlockSize) {
        openOutputs(copies, like, nullptr);
        tellNewErrors(source);
        copyBlocks(from, source, size, count);
        m_isSourceChanged = hasSourceChanged(from, m_written);
        return;
    }
    // A read of less than a block is the whole file. It is created, written and closed in one go.
    const Block block = m_run.block(0).first(*count);
    m_written = *count;
    m_isSourceChanged = hasSourceChanged(from, *count);
    openOutputs(copies, like, &block);
    tellNewErrors(source);
    if (*count > 0)
        m_run.postFileProgress(*count, size);
    noteInMemory(0, *count, false);
}

void FileDuplicator::copyBlocks(File &from, const std::string &source, std::uint64_t size,
                                Expected<std::size_t> count)
{
    std::uint64_t offset = 0;
    int inHand = 0;
    while (count && *count > 0) {
        const Block block = m_run.block(inHand).first(*count);
        const auto ahead = writeAndReadAhead(from, block, offset, 1 - inHand);
        noteInMemory(offset, *count, size > LargeFile);
        tellNewErrors(source);
        offset += *count;
        m_written = offset;
        m_run.postFileProgress(offset, size);
        WorkerThread::exitIfCancelled();
        inHand = 1 - inHand;
        count = ahead;
        if (offset > size + MostGrowth)
            return; // the source grows without end
    }
    if (!count)
        failAll(count.error());
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
        target.output = {};
        if (target.index >= copies.size() || !copies[target.index])
            return;
        openOutput(target, *copies[target.index], like);
        if (!wholeFile)
            return;
        if (!wholeFile->empty())
            writeTo(target, *wholeFile, 0);
        closeOutput(target);
    };
    m_run.shareBlock(wholeFile ? *wholeFile : Block(), work);
}

void FileDuplicator::openOutput(Target &target, const std::string &copy, const Attributes &like)
{
    auto &output = target.output;
    auto file = target.destination.createFile(copy, like);
    if (file) {
        if (const auto made = (*file)->attributes())
            target.written.add(*made, m_source);
        output.file = std::move(*file);
    } else if (file.error().problem == FileProblem::Exists) {
        openExisting(target, copy);
    } else {
        // If the folder could not be made, that is why the file failed, too.
        output.error = target.parentError.value_or(file.error());
    }
}

// An existing file is overwritten in place, and keeps its bytes beyond the source's end. A file that this run
// wrote from another source is left alone.
void FileDuplicator::openExisting(Target &target, const std::string &copy)
{
    auto &destination = target.destination;
    auto &output = target.output;
    const auto place = destination.placeOf(copy);
    const auto owner =
        place ? target.written.ownerOf(*destination.volume(), *place, m_source) : WrittenFiles::Owner::Nobody;
    if (owner == WrittenFiles::Owner::OtherSource) {
        output.existed = true;
        output.error = FileError{FileProblem::SameFile, 0};
        output.otherName = WrittenFiles::otherNameOf(*destination.volume(), *place);
        return;
    }
    auto file = destination.openExisting(copy, m_run.sourceFiles());
    if (file) {
        output.existed = true;
        if (const auto there = (*file)->attributes())
            target.written.add(*there, m_source);
        output.file = std::move(*file);
        return;
    }
    target.isDoneBefore = owner == WrittenFiles::Owner::SameSource;
    if (target.isDoneBefore)
        return; // the first copy made the file read-only, and is whole
    // A link to nowhere is not an existing file. It counts as a file that could not be created.
    output.existed = file.error().problem != FileProblem::NotFound;
    output.error = target.parentError.value_or(file.error());
}

Expected<std::size_t> FileDuplicator::writeAndReadAhead(File &from, Block block, std::uint64_t offset,
                                                        int spare)
{
    Expected<std::size_t> ahead;
    m_run.shareBlockBeside(
        block, [&](Target &target) { writeTo(target, block, offset); },
        [&] { ahead = from.read(m_run.block(spare), offset + block.size()); });
    return ahead;
}

void FileDuplicator::writeTo(Target &target, Block block, std::uint64_t offset)
{
    auto &output = target.output;
    if (!output.file || output.error)
        return;
    const BusyTime::Work work(target.tally.busy);
    const auto start = std::chrono::steady_clock::now();
    if (const auto written = output.file->write(block, offset); !written)
        output.error = written.error();
    else
        target.tally.bytes += block.size();
    target.tally.addWriteTime(std::chrono::steady_clock::now() - start);
}

// Tells the pumps which bytes were written, and waits while a disk is too far behind.
void FileDuplicator::noteInMemory(std::uint64_t offset, std::uint64_t length, bool isLargeFile)
{
    for (auto &target : m_run.targets()) {
        auto &output = target.output;
        auto *pump = target.pump.get();
        if (!pump || !output.file)
            continue;
        if (!isLargeFile)
            pump->noteWritten(length);
        else if (const auto moved = pump->noteRange(*output.file, offset, length); !moved && !output.error)
            output.error = moved.error();
        const BusyTime::Work work(target.tally.busy);
        const auto start = std::chrono::steady_clock::now();
        pump->waitForRoom(WorkerThread::currentToken());
        target.tally.addWriteTime(std::chrono::steady_clock::now() - start);
    }
}

void FileDuplicator::failAll(const FileError &error)
{
    for (auto &target : m_run.targets()) {
        if (target.output.file && !target.output.error)
            target.output.error = error;
    }
}

void FileDuplicator::tellNewErrors(const std::string &source)
{
    for (auto &target : m_run.targets()) {
        auto &output = target.output;
        if (!output.error || std::exchange(output.isTold, true))
            continue;
        if (!output.file && output.existed)
            tellOutcome(target, source);
        else
            m_run.cannotDuplicate(target, source, *output.error);
    }
}

// Reports why an existing file was not opened.
void FileDuplicator::tellOutcome(Target &target, const std::string &source)
{
    const auto &output = target.output;
    const auto reason = output.error->reason();
    if (output.error->problem == FileProblem::SameFile)
        m_run.fileFailed(target, source,
                         reason +
                             (output.otherName.empty() ? "" : ", called " + displayPath(output.otherName)),
                         ProblemKind::SameFile);
    else if (output.error->problem == FileProblem::OfSource)
        m_run.fileFailed(target, source, "The existing file is left alone: " + reason);
    else
        m_run.fileFailed(target, source, "The existing file cannot be opened: " + reason);
}

void FileDuplicator::closeOutput(Target &target)
{
    auto &output = target.output;
    if (!output.file || output.isClosed)
        return;
    output.isClosed = true;
    const BusyTime::Work work(target.tally.busy); // the disk may be waited for
    if (target.pump) {
        if (const auto moved = target.pump->leave(*output.file); !moved && !output.error)
            output.error = moved.error();
    }
    if (output.existed && !output.error) {
        if (const auto copy = output.file->attributes(); copy && copy->size > m_written)
            output.tail = copy->size - m_written;
    }
    if (target.destination.traits().needsFileSync) {
        if (const auto synced = output.file->sync(); !synced && !output.error)
            output.error = synced.error();
    }
    if (const auto closed = output.file->close(); !closed && !output.error)
        output.error = closed.error();
    if (!output.error && !output.tail && !m_isSourceChanged) {
        target.isCopied = true;
        ++target.tally.copied;
    }
}

// A run that is cancelled in the middle of a file closes the file. The file's pump may still be at work on
// it, and must let go of it first.
void FileDuplicator::leavePumps()
{
    for (auto &target : m_run.targets()) {
        if (target.pump && target.output.file && !target.output.isClosed)
            (void)target.pump->leave(*target.output.file);
    }
}

void FileDuplicator::closeOutputs(const std::string &source)
{
    for (auto &target : m_run.targets())
        closeOutput(target);
    tellNewErrors(source);
    for (auto &target : m_run.targets()) {
        const auto output = std::exchange(target.output, {});
        if (!output.file || output.error)
            continue;
        if (m_isSourceChanged)
            m_run.sourceChanged(target, source);
        else if (output.tail)
            m_run.fileFailed(target, source,
                             "The copy holds " + std::to_string(*output.tail) +
                                 " bytes of an older file behind it",
                             ProblemKind::KeptTail);
    }
}

} // namespace orvana

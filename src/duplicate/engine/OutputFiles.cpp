#include "duplicate/engine/OutputFiles.h"

#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/Target.h"
#include "foundation/DisplayPath.h"
#include "foundation/WorkerThread.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

namespace orvana
{

using platform::Access;
using platform::Attributes;
using platform::Expected;
using platform::File;
using platform::FileError;
using platform::FileProblem;

void OutputFiles::start(const std::string &source)
{
    m_source = source;
    m_read = 0;
    m_data.reset();
    m_isSourceChanged = false;
    for (auto &target : m_run.targets())
        target.output = {};
}

void OutputFiles::open(Target &target, const std::string &copy, const Attributes &like)
{
    auto &output = target.output;
    if (target.work == CopyWork::None)
        return;
    auto file = target.destination.createFile(copy, like);
    if (!file && file.error().problem == FileProblem::Exists && m_run.keeper().keepsAll()) {
        // Links are copied as links, so what such a link leads to is the copy of another file.
        target.destination.removeLink(copy);
        file = target.destination.createFile(copy, like);
    }
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

// An existing file is overwritten in place. A file that this run wrote from another source is left alone.
void OutputFiles::openExisting(Target &target, const std::string &copy)
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
    auto file = openForWork(target, copy);
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

Expected<std::unique_ptr<File>> OutputFiles::openForWork(Target &target, const std::string &copy)
{
    auto &output = target.output;
    const auto open = [&](Access access) {
        return target.destination.openExisting(copy, m_run.sourceFiles(), access);
    };
    if (!m_run.manner().update && target.work != CopyWork::Compare)
        return open(Access::Write);
    output.isCompared = true;
    auto file = open(Access::ReadAndWrite);
    if (!file && file.error().code == EACCES) {
        // A file that nobody may write to can be right already.
        output.writeRefusal = file.error();
        file = open(Access::Read);
    }
    if (file) {
        // The disk is to be read. Memory may hold something else.
        (void)(*file)->finishWriteOut(0, File::ToTheEnd);
        (*file)->dropCached(0, File::ToTheEnd);
    }
    return file;
}

// Reads the block of the copy. A block that cannot be read is written again.
bool OutputFiles::holds(Target &target, Block block, std::uint64_t offset)
{
    auto &buffer = target.comparison.block;
    if (!buffer)
        buffer = std::make_unique_for_overwrite<std::byte[]>(BlockSize);
    auto &file = *target.output.file;
    if (block.size() == BlockSize)
        file.willRead(offset + BlockSize, BlockSize);
    const auto count = file.read({buffer.get(), block.size()}, offset);
    return count && *count == block.size() && std::memcmp(buffer.get(), block.data(), block.size()) == 0;
}

void OutputFiles::write(Target &target, Block block, std::uint64_t offset)
{
    auto &output = target.output;
    if (!output.file || output.error)
        return;
    const BusyTime::Work work(target.tally.busy);
    if (output.isCompared && holds(target, block, offset)) {
        target.tally.bytesThere += block.size();
        return;
    }
    if (output.writeRefusal) {
        output.error = output.writeRefusal;
        return;
    }
    const auto start = std::chrono::steady_clock::now();
    output.isWritten = true;
    if (const auto written = m_data ? putData(target, block, offset) : put(target, block, offset); !written)
        output.error = written.error();
    else if (!m_data || !m_data->empty())
        ++target.tally.blocksWritten;
    target.tally.addWriteTime(std::chrono::steady_clock::now() - start);
}

Expected<void> OutputFiles::put(Target &target, Block block, std::uint64_t offset) const
{
    auto &output = target.output;
    auto written = output.file->write(block, offset);
    if (written) {
        target.tally.bytes += block.size();
        output.inMemory += block.size();
    }
    return written;
}

// Writes the parts of the block that are not holes. A copy that was there may hold something where the source
// has a hole.
Expected<void> OutputFiles::putData(Target &target, Block block, std::uint64_t offset) const
{
    auto &output = target.output;
    Expected<void> written;
    const auto piece = [&](std::uint64_t from, std::uint64_t to) {
        return block.subspan(from - offset, to - from);
    };
    const auto empty = [&](std::uint64_t from, std::uint64_t to) {
        if (written && output.existed && from < to && !output.file->makeHole({from, to - from}))
            written = put(target, piece(from, to), from);
    };
    auto done = offset;
    for (const auto &range : *m_data) {
        empty(done, range.offset);
        done = range.offset + range.length;
        if (written)
            written = put(target, piece(range.offset, done), range.offset);
    }
    empty(done, offset + block.size());
    return written;
}

void OutputFiles::noteInMemory(std::uint64_t offset, bool isLargeFile)
{
    for (auto &target : m_run.targets()) {
        auto &output = target.output;
        auto *pump = target.pump.get();
        const auto length = std::exchange(output.inMemory, 0);
        if (!pump || !output.file || length == 0)
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

void OutputFiles::failAll(const FileError &error)
{
    for (auto &target : m_run.targets()) {
        if (target.output.file && !target.output.error)
            target.output.error = error;
    }
}

void OutputFiles::tellNewErrors()
{
    for (auto &target : m_run.targets()) {
        auto &output = target.output;
        if (!output.error || std::exchange(output.isTold, true))
            continue;
        if (!output.file && output.existed)
            tellOutcome(target);
        else
            m_run.cannotDuplicate(target, m_source, *output.error);
    }
}

// Reports why an existing file was not opened.
void OutputFiles::tellOutcome(Target &target) const
{
    const auto &output = target.output;
    const auto reason = output.error->reason();
    if (output.error->problem == FileProblem::SameFile)
        m_run.fileFailed(target, m_source,
                         reason +
                             (output.otherName.empty() ? "" : ", called " + displayPath(output.otherName)),
                         ProblemKind::SameFile);
    else if (output.error->problem == FileProblem::OfSource)
        m_run.fileFailed(target, m_source, "The existing file is left alone: " + reason);
    else
        m_run.fileFailed(target, m_source, "The existing file cannot be opened: " + reason);
}

// A hole at the end of a file is only a greater length.
void OutputFiles::endHoles(Target &target) const
{
    auto &output = target.output;
    if (const auto grown = output.file->growTo(m_read); !grown && !output.error)
        output.error = grown.error();
    const auto copy = output.file->attributes();
    if (copy && copy->allocated >= copy->size)
        target.tally.note(platform::Part::Hole);
}

// An existing file keeps its bytes beyond the source's end, unless the run cuts them off. Only what was read
// to its end tells where a copy ends.
void OutputFiles::endTail(Target &target) const
{
    auto &output = target.output;
    const auto copy = output.file->attributes();
    if (!copy || copy->size <= m_read)
        return;
    if (!m_run.manner().cutsTails() || m_isSourceChanged) {
        output.tail = copy->size - m_read;
        return;
    }
    output.isWritten = true;
    if (output.writeRefusal)
        output.error = output.writeRefusal;
    else if (const auto cut = output.file->cutTo(m_read); !cut)
        output.error = cut.error();
}

void OutputFiles::close(Target &target)
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
    if (output.existed && !output.error)
        endTail(target);
    if (m_data && !output.error)
        endHoles(target);
    if (!output.error)
        m_run.keeper().applyTo(target, *output.file);
    if (target.destination.traits().needsFileSync) {
        if (const auto synced = output.file->sync(); !synced && !output.error)
            output.error = synced.error();
    }
    if (auto attributes = output.file->attributes())
        target.copyInHand = *attributes;
    if (const auto closed = output.file->close(); !closed && !output.error)
        output.error = closed.error();
    if (!output.error && !output.tail && !m_isSourceChanged) {
        target.isCopied = true;
        ++target.tally.copied;
        target.isThereBefore = !output.isWritten && output.isCompared;
        target.tally.alreadyThere += target.isThereBefore ? 1 : 0;
    }
}

// A run that is cancelled in the middle of a file closes the file. The file's pump may still be at work on
// it, and must let go of it first.
void OutputFiles::leavePumps()
{
    for (auto &target : m_run.targets()) {
        if (target.pump && target.output.file && !target.output.isClosed)
            (void)target.pump->leave(*target.output.file);
    }
}

void OutputFiles::closeAll()
{
    for (auto &target : m_run.targets())
        close(target);
    tellNewErrors();
    for (auto &target : m_run.targets()) {
        const auto output = std::exchange(target.output, {});
        if (m_isSourceChanged && target.work == CopyWork::None)
            m_run.sourceChanged(target, m_source);
        if (!output.file || output.error)
            continue;
        if (m_isSourceChanged)
            m_run.sourceChanged(target, m_source);
        else if (output.tail)
            m_run.fileFailed(target, m_source,
                             "The copy holds " + std::to_string(*output.tail) +
                                 " bytes of an older file behind it",
                             ProblemKind::KeptTail);
    }
}

} // namespace orvana

#include "duplicate/FileDuplicator.h"

#include "duplicate/FileComparer.h"
#include "duplicate/RunState.h"
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

} // namespace

int FileDuplicator::copy(const std::string &source, const OutArray &copies, const Attributes &like,
                         const std::vector<bool> &newFolders)
{
    m_newFolders = newFolders;
    m_run.startFile();
    createParents(copies, like);
    m_run.postMessage("Duplicating " + displayPath(source));
    const auto from = m_run.sources().openFile(source, Access::Read);
    if (!from) {
        systemLog("Open of " + displayPath(source) + " for reading failed");
        failForAll(source, copies, from.error());
        return -1;
    }
    copyContent(**from, source, copies, like);
    closeOutputs(source);
    if (m_run.context().verifyFiles())
        m_comparer.compare(source, copies);
    return 1;
}

void FileDuplicator::createParents(const OutArray &copies, const Attributes &like)
{
    m_parentErrors.assign(m_run.destinationCount(), std::nullopt);
    for (std::size_t i = 0; i < m_run.destinationCount() && i < copies.size(); ++i) {
        if (!copies[i])
            continue;
        const auto created = m_run.destination(i).createParent(*copies[i], like);
        if (created)
            continue;
        m_parentErrors[i] = created.error();
        systemLog("Create " + displayPath(copies[i]->substr(0, copies[i]->rfind('/'))) + " Folder Fail \n");
    }
}

void FileDuplicator::failForAll(const std::string &source, const OutArray &copies, const FileError &error)
{
    for (std::size_t i = 0; i < m_run.destinationCount() && i < copies.size(); ++i) {
        if (copies[i])
            m_run.fileFailed(i, source, "The source cannot be opened: " + error.reason());
    }
}

void FileDuplicator::copyContent(File &from, const std::string &source, const OutArray &copies,
                                 const Attributes &like)
{
    const auto attributes = from.attributes();
    const std::uint64_t size = attributes ? attributes->size : 0;
    if (attributes)
        m_run.sourceFiles().addDevice(attributes->device);
    m_run.countStartedFile(size);
    WorkerThread::exitIfCancelled();
    const auto count = from.read(m_run.block(0), 0);
    if (!count || *count == BlockSize) {
        openOutputs(copies, like, nullptr);
        tellNewErrors(source);
        copyBlocks(from, source, size, count);
        return;
    }
    // Less than a block is the whole file, and it is created, written and closed in one go.
    const Block block = m_run.block(0).first(*count);
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
        m_run.postFileProgress(offset, size);
        WorkerThread::exitIfCancelled();
        inHand = 1 - inHand;
        count = ahead;
    }
    if (!count)
        failAll(count.error());
}

void FileDuplicator::openOutputs(const OutArray &copies, const Attributes &like, const Block *wholeFile)
{
    m_outputs.clear();
    m_outputs.resize(m_run.destinationCount());
    const Lanes::Work work = [&](std::size_t i) {
        if (i >= copies.size() || !copies[i])
            return;
        m_outputs[i] = openOutput(i, *copies[i], like);
        if (!wholeFile)
            return;
        if (!wholeFile->empty())
            writeTo(i, *wholeFile, 0);
        closeOutput(i);
    };
    m_run.lanes().share(work, m_outputs.size(), m_run.helpers());
}

FileDuplicator::Output FileDuplicator::openOutput(std::size_t index, const std::string &copy,
                                                  const Attributes &like)
{
    auto &destination = m_run.destination(index);
    Output output;
    auto file = destination.createFile(copy, like);
    // What is there is written over as it is, and keeps what it has beyond the source's end.
    if (!file && file.error().problem == FileProblem::Exists) {
        file = destination.openExisting(copy, m_run.sourceFiles());
        // A link to nowhere is no file: it counts as one that could not be created.
        output.existed = file || file.error().problem != FileProblem::NotFound;
        output.isSecondOfItsName = output.existed && index < m_newFolders.size() && m_newFolders[index];
    }
    if (file)
        output.file = std::move(*file);
    else // what stood in the way of its folder stands in the way of the file
        output.error = m_parentErrors[index].value_or(file.error());
    return output;
}

Expected<std::size_t> FileDuplicator::writeAndReadAhead(File &from, Block block, std::uint64_t offset,
                                                        int spare)
{
    const Lanes::Work work = [&](std::size_t i) { writeTo(i, block, offset); };
    m_run.lanes().start(work, m_outputs.size(), m_outputs.size());
    auto ahead = from.read(m_run.block(spare), offset + block.size());
    m_run.lanes().wait();
    return ahead;
}

void FileDuplicator::writeTo(std::size_t index, Block block, std::uint64_t offset)
{
    auto &output = m_outputs[index];
    if (!output.file || output.error)
        return;
    const auto start = std::chrono::steady_clock::now();
    if (const auto written = output.file->write(block, offset); !written)
        output.error = written.error();
    else
        m_run.tally(index).bytes += block.size();
    m_run.tally(index).addWriteTime(std::chrono::steady_clock::now() - start);
}

// Tells the pumps what was written, and waits while a disk is too far behind.
void FileDuplicator::noteInMemory(std::uint64_t offset, std::uint64_t length, bool isLargeFile)
{
    for (std::size_t i = 0; i < m_outputs.size(); ++i) {
        auto *pump = m_run.pump(i);
        auto &output = m_outputs[i];
        if (!pump || !output.file)
            continue;
        if (!isLargeFile)
            pump->noteWritten(length);
        else if (const auto moved = pump->noteRange(*output.file, offset, length); !moved && !output.error)
            output.error = moved.error();
        const auto start = std::chrono::steady_clock::now();
        pump->waitForRoom(WorkerThread::currentToken());
        m_run.tally(i).addWriteTime(std::chrono::steady_clock::now() - start);
    }
}

void FileDuplicator::failAll(const FileError &error)
{
    for (auto &output : m_outputs) {
        if (output.file && !output.error)
            output.error = error;
    }
}

void FileDuplicator::tellNewErrors(const std::string &source)
{
    for (std::size_t i = 0; i < m_outputs.size(); ++i) {
        auto &output = m_outputs[i];
        if (!output.error || std::exchange(output.isTold, true))
            continue;
        if (!output.file && output.existed)
            m_run.fileFailed(i, source,
                             (output.error->problem == FileProblem::OfSource
                                  ? "The existing file is left alone: "
                                  : "The existing file cannot be opened: ") +
                                 output.error->reason());
        else
            m_run.cannotDuplicate(i, source, *output.error);
    }
}

void FileDuplicator::closeOutput(std::size_t index)
{
    auto &output = m_outputs[index];
    if (!output.file || output.isClosed)
        return;
    output.isClosed = true;
    if (auto *pump = m_run.pump(index)) {
        if (const auto moved = pump->leave(*output.file); !moved && !output.error)
            output.error = moved.error();
    }
    if (const auto closed = output.file->close(); !closed && !output.error)
        output.error = closed.error();
    if (!output.error && !output.isSecondOfItsName)
        m_run.fileCopied(index);
}

// A run that is cancelled in mid-file closes the file while its pump may be at work on it.
void FileDuplicator::leavePumps()
{
    for (std::size_t i = 0; i < m_outputs.size(); ++i) {
        if (auto *pump = m_run.pump(i); pump && m_outputs[i].file && !m_outputs[i].isClosed)
            (void)pump->leave(*m_outputs[i].file);
    }
}

void FileDuplicator::closeOutputs(const std::string &source)
{
    for (std::size_t i = 0; i < m_outputs.size(); ++i)
        closeOutput(i);
    tellNewErrors(source);
    for (std::size_t i = 0; i < m_outputs.size(); ++i) {
        if (m_outputs[i].isSecondOfItsName && !m_outputs[i].error)
            m_run.fileFailed(i, source, "Another file of this run has this name here");
    }
    m_outputs.clear();
}

} // namespace orvana

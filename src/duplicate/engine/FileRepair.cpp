#include "duplicate/engine/FileRepair.h"

#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/Target.h"
#include "foundation/WorkerThread.h"

#include <algorithm>
#include <cstring>

namespace orvana
{

using platform::Access;
using platform::File;

namespace
{

constexpr int MostTries = 2;

} // namespace

void FileRepair::repair(File &from, const std::string &source, const OutArray &copies)
{
    m_run.forEachCopy(copies, [&](Target &target, const std::string &copy) {
        if (target.comparison.file && !target.hasFailed && !target.comparison.badBlocks.empty())
            repairCopy(target, from, source, copy);
    });
}

void FileRepair::repairCopy(Target &target, File &from, const std::string &source, const std::string &copy)
{
    auto &comparison = target.comparison;
    // More blocks differ than are remembered: this is no single error of the medium.
    if (comparison.badBlocks.size() != static_cast<std::size_t>(comparison.differences)) {
        m_run.report().suspect(target.index);
        return;
    }
    const auto file = target.destination.openExisting(copy, m_run.sourceFiles(), Access::ReadAndWrite);
    if (!file)
        return;
    for (const auto offset : comparison.badBlocks) {
        WorkerThread::exitIfCancelled();
        if (isInDoubt(target, from, offset)) {
            m_run.report().unverified(
                target.index, source,
                "The source is in doubt at byte " + std::to_string(offset) +
                    ": it does not read the same twice, or several copies differ there");
            comparison.file.reset();
            return;
        }
        if (!writeAgain(target, **file, offset)) {
            m_run.report().suspect(target.index);
            return;
        }
    }
    noteRepaired(target, **file);
}

bool FileRepair::isInDoubt(const Target &target, File &from, std::uint64_t offset)
{
    const auto &targets = m_run.targets();
    const bool differsElsewhere = std::any_of(targets.begin(), targets.end(), [&](const Target &other) {
        const auto &blocks = other.comparison.badBlocks;
        return &other != &target && std::find(blocks.begin(), blocks.end(), offset) != blocks.end();
    });
    return differsElsewhere || !readSource(from, offset);
}

// Reads the block of the source past the memory. Returns false if it is not what was copied.
bool FileRepair::readSource(File &from, std::uint64_t offset)
{
    from.dropCached(offset, BlockSize);
    const auto count = from.read(m_run.block(0), offset);
    if (!count || *count == 0)
        return false;
    m_block = m_run.block(0).first(*count);
    return m_run.blockMarks().isSame(offset, m_block);
}

bool FileRepair::writeAgain(Target &target, File &file, std::uint64_t offset)
{
    const BusyTime::Work work(target.tally.busy);
    const std::span<std::byte> back(target.comparison.block.get(), m_block.size());
    for (int tries = 0; tries < MostTries; ++tries) {
        if (!file.write(m_block, offset))
            return false;
        ++target.tally.blocksWritten;
        target.tally.bytes += m_block.size();
        if (!file.sync())
            return false;
        file.dropCached(offset, m_block.size());
        const auto count = file.read(back, offset);
        if (count && *count == back.size() && std::memcmp(back.data(), m_block.data(), back.size()) == 0)
            return true;
    }
    return false;
}

// All blocks are right now. A digest of what was read back is made anew.
void FileRepair::noteRepaired(Target &target, File &file) const
{
    auto &comparison = target.comparison;
    comparison.differences = 0;
    comparison.error.reset();
    comparison.badBlocks.clear();
    ++target.tally.repaired;
    m_run.keeper().applyTo(target, file);
    if (auto attributes = file.attributes())
        target.copyInHand = *attributes;
    if (!comparison.digest)
        return;
    comparison.digest.emplace(m_run.evidence()->format());
    file.dropCached(0, File::ToTheEnd);
    for (std::uint64_t offset = 0;;) {
        WorkerThread::exitIfCancelled();
        const auto count = file.read({comparison.block.get(), BlockSize}, offset);
        if (!count || *count == 0)
            return;
        comparison.digest->add({reinterpret_cast<const char *>(comparison.block.get()), *count});
        offset += *count;
    }
}

} // namespace orvana

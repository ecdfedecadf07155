#include "duplicate/engine/BlockSamples.h"

#include "duplicate/engine/RunContext.h"
#include "duplicate/engine/SourceTime.h"
#include "foundation/WorkerThread.h"

#include <cstring>
#include <span>

namespace orvana
{

using platform::Access;
using platform::Attributes;
using platform::File;

namespace
{

// Reads the copy's block at `offset` from the disk into the run's second block.
platform::Expected<std::size_t> readAgain(RunContext &run, Target &target, const std::string &copy,
                                          std::uint64_t offset)
{
    const auto file = target.destination.openFile(copy, Access::Read);
    if (!file)
        return tl::unexpected(file.error());
    (*file)->dropCached(0, File::ToTheEnd);
    return (*file)->read(run.block(1), offset);
}

} // namespace

void BlockSamples::note(const std::string &source, const Attributes &sourceThen, const OutArray &copies,
                        std::uint64_t offset)
{
    if (m_ends.size() < 2)
        m_ends.emplace_back();
    m_ends.back() = {source, sourceThen, copies, offset};
    ++m_seen;
    if (m_spread.size() < Spread) {
        m_spread.push_back(m_ends.back());
        return;
    }
    const auto place = std::uniform_int_distribution<std::uint64_t>(0, m_seen - 1)(m_random);
    if (place < Spread)
        m_spread[static_cast<std::size_t>(place)] = m_ends.back();
}

void BlockSamples::compare(RunContext &run) const
{
    Told told;
    for (const auto *list : {&m_ends, &m_spread}) {
        for (const auto &sample : *list) {
            WorkerThread::exitIfCancelled();
            compareOne(run, sample, told);
        }
    }
}

void BlockSamples::compareOne(RunContext &run, const Sample &sample, Told &told)
{
    const auto from = run.sources().openFile(sample.source, Access::Read);
    const auto now = from ? (*from)->attributes() : tl::unexpected(from.error());
    const auto wanted = run.block(0);
    const auto count = now && isUnchanged(sample.sourceThen, *now) ? (*from)->read(wanted, sample.offset)
                                                                   : platform::Expected<std::size_t>(0);
    if (!count || *count == 0)
        return;
    run.forEachCopy(sample.copies, [&](Target &target, const std::string &copy) {
        if (told.contains({target.index, sample.source}))
            return;
        const auto there = readAgain(run, target, copy, sample.offset);
        const bool isEqual =
            there && *there >= *count && std::memcmp(wanted.data(), run.block(1).data(), *count) == 0;
        if (isEqual)
            return;
        told.insert({target.index, sample.source});
        --target.tally.verified;
        if (auto *evidence = run.evidence())
            evidence->withdraw(run.targets(), target, copy);
        if (there)
            run.report().mismatched(target.index, sample.source, sample.offset, 1);
        else
            run.report().unverified(target.index, sample.source,
                                    "The copy cannot be read again: " + there.error().reason());
    });
}

} // namespace orvana

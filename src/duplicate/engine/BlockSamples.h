#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace orvana
{

class RunContext;

/// Blocks of a run that are compared once more at its end: the first block, the last block, and 64 blocks
/// spread over the run. Only this check finds a disk that is smaller than it says: there, later blocks have
/// overwritten earlier blocks.
class BlockSamples
{
public:
    /// Notes a block that was compared. Each block of the run has the same chance to be kept.
    void note(const std::string &source, const platform::Attributes &sourceThen, const OutArray &copies,
              std::uint64_t offset);

    /// Reads the kept blocks from the disk and compares them once more. A copy that differs by now is
    /// reported as mismatched, a copy that cannot be read as unverified. Both no longer count as verified. A
    /// block is left out when its source was written to since.
    void compare(RunContext &run) const;

private:
    struct Sample
    {
        std::string source;
        platform::Attributes sourceThen;
        OutArray copies;
        std::uint64_t offset = 0;
    };

    /// The copies that were reported: index of the destination and path of the source.
    using Told = std::set<std::pair<std::size_t, std::string>>;

    static void compareOne(RunContext &run, const Sample &sample, Told &told);

    static constexpr std::size_t Spread = 64;

    std::vector<Sample> m_spread;
    std::vector<Sample> m_ends; // the first and the last block
    std::uint64_t m_seen = 0;
    std::minstd_rand m_random;
};

} // namespace orvana

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

/// Blocks of a run that are compared once more at its end: the first and the last one, and 64 spread over
/// all. A disk that is smaller than it says shows itself only then, when later blocks have gone over earlier
/// ones.
class BlockSamples
{
public:
    /// Notes a block that was compared. Each block of the run has the same chance to be kept.
    void note(const std::string &source, const platform::Attributes &sourceThen, const OutArray &copies,
              std::uint64_t offset);

    /// Compares the kept blocks once more, read from the disk. A copy that differs by now is reported as
    /// mismatched, one that cannot be read as unverified; either no longer counts as verified. Blocks of a
    /// source that was written to since are left out.
    void compare(RunContext &run) const;

private:
    struct Sample
    {
        std::string source;
        platform::Attributes sourceThen;
        OutArray copies;
        std::uint64_t offset = 0;
    };

    /// Index of the destination and source of each copy that was reported.
    using Told = std::set<std::pair<std::size_t, std::string>>;

    static void compareOne(RunContext &run, const Sample &sample, Told &told);

    static constexpr std::size_t Spread = 64;

    std::vector<Sample> m_spread;
    std::vector<Sample> m_ends; // first and last
    std::uint64_t m_seen = 0;
    std::minstd_rand m_random;
};

} // namespace orvana

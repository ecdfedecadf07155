#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace orvana
{

class RunContext;
struct Target;

/// Writes the blocks of a copy once more that were found to differ when the copy was read back.
///
/// A block is written only if the source still reads as it did when it was copied, and if no other copy
/// differs there: otherwise the source is in doubt, and nobody knows what is right. A block that is wrong
/// again after the second try makes its disk suspect.
class FileRepair
{
public:
    explicit FileRepair(RunContext &run) : m_run(run) {}

    /// Repairs the copies of the file in hand, as far as it can, and notes the results in their targets.
    /// `from` is the open source. Ends the thread when it is cancelled.
    void repair(platform::File &from, const std::string &source, const OutArray &copies);

private:
    void repairCopy(Target &target, platform::File &from, const std::string &source, const std::string &copy);
    bool isInDoubt(const Target &target, platform::File &from, std::uint64_t offset);
    bool readSource(platform::File &from, std::uint64_t offset);
    bool writeAgain(Target &target, platform::File &file, std::uint64_t offset);
    void noteRepaired(Target &target, platform::File &file) const;

    RunContext &m_run;
    std::span<const std::byte> m_block; ///< of the source
};

} // namespace orvana

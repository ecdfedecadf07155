#pragma once

#include "duplicate/engine/BlockSamples.h"
#include "platform/VolumeFiles.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvana
{

class RunContext;
struct ComparedCopy;
struct Target;

/// Reads a file and its copies back, block by block, and reports where they differ.
///
/// Their content is dropped from memory first, if the file system allows it, so that the disks are read.
class FileComparer
{
public:
    explicit FileComparer(RunContext &run) : m_run(run) {}

    /// Returns 1, or -1 when the source cannot be opened. Ends the thread when it is cancelled.
    int compare(const std::string &source, const OutArray &copies);

    /// Compares samples of all compared blocks once more. Called at the end of a run.
    void compareSamples() const { m_samples.compare(m_run); }

private:
    void openCopies(const std::string &source, const OutArray &copies);
    void readFromDisk(Target &target, const std::string &source);
    void compareBlocks(platform::File &from, std::uint64_t size);
    void noteSample(const std::string &source, const OutArray &copies, std::uint64_t size);
    platform::Expected<std::size_t> compareAndReadAhead(platform::File &from,
                                                        std::span<const std::byte> block,
                                                        std::uint64_t offset, int spare);
    static void compareBlock(Target &target, std::span<const std::byte> block, std::uint64_t offset);
    void tellDifferences(std::uint64_t offset);
    void tellUnreadableSource(const platform::FileError &error);
    bool isSourceChanged(const platform::File &from) const;
    void noteChangedSource(const std::string &source);
    static void noteVerified(Target &target);
    void noteResults(const std::string &source);

    RunContext &m_run;
    BlockSamples m_samples;
    bool m_diskIsRead = false; ///< at least one of the copies is read from its disk
    bool m_sideBySide = false; ///< compare on several threads: worth it for slow disks and for large files
};

} // namespace orvana

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "duplicate/engine/OutputFiles.h"
#include "duplicate/engine/ReadAhead.h"
#include "platform/VolumeFiles.h"

#include <cstdint>
#include <string>

namespace orvana
{

class FileComparer;
class RunContext;
struct Target;

/// Copies one file to all destinations. Each block is read once and written to all of them.
class FileDuplicator
{
public:
    FileDuplicator(RunContext &run, FileComparer &comparer);

    /// Copies one file. New copies, and missing folders above them, get the attributes `like`. Returns 1, or
    /// -1 when the source cannot be opened. Ends the thread when it is cancelled.
    int copy(const std::string &source, const OutArray &copies, const platform::Attributes &like);

    /// The file of the source that comes after the one in hand.
    ReadAhead &readAhead() { return m_readAhead; }

    /// Makes the folders that are to hold the copies. Missing ones get the attributes `like`.
    void createParents(const OutArray &copies, const platform::Attributes &like);

private:
    using Block = OutputFiles::Block;

    bool decide(const OutArray &copies);
    void decideByJournal(const OutArray &copies);
    void noteThere(Target &target);
    void verify(const std::string &source, const OutArray &copies);
    void noteJournal(const OutArray &copies, bool isVerified);
    void noteEvidence(const OutArray &copies, bool isVerified);
    void failForAll(const std::string &source, const OutArray &copies, const platform::FileError &error);
    void copyContent(platform::File &from, const ReadAhead::Source *ahead, const OutArray &copies,
                     const platform::Attributes &like);
    void copyAtOnce(platform::File &from, Block block, std::uint64_t size, const OutArray &copies,
                    const platform::Attributes &like);
    void copyBlocks(platform::File &from, std::uint64_t size, platform::Expected<std::size_t> count);
    void openOutputs(const OutArray &copies, const platform::Attributes &like, const Block *wholeFile);
    void readBlockFacts(const platform::File &from, Block block, std::uint64_t offset);
    bool hasSourceChanged(const platform::File &from, std::uint64_t bytesRead) const;
    platform::Expected<std::size_t> writeAndReadAhead(platform::File &from, Block block, std::uint64_t offset,
                                                      int spare);

    RunContext &m_run;
    FileComparer &m_comparer;
    OutputFiles m_outputs;
    ReadAhead m_readAhead;
    std::string m_digestBefore;     ///< of a file of which nothing is left to be done; "xxh128:..."
    bool m_mayChangeUnseen = false; ///< a write to the current source may leave its time unchanged
};

} // namespace orvana

#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvana
{

class FileComparer;
class RunContext;
struct Target;

/// Copies one file to all destinations. Each block is read once and written to all of them.
class FileDuplicator
{
public:
    FileDuplicator(RunContext &run, FileComparer &comparer) : m_run(run), m_comparer(comparer) {}
    ~FileDuplicator() { leavePumps(); }
    FileDuplicator(const FileDuplicator &) = delete;
    FileDuplicator &operator=(const FileDuplicator &) = delete;

    /// Copies one file. New copies, and missing folders above them, get the attributes `like`. Returns 1, or
    /// -1 when the source cannot be opened. Ends the thread when it is cancelled.
    int copy(const std::string &source, const OutArray &copies, const platform::Attributes &like);

private:
    using Block = std::span<const std::byte>;

    void createParents(const OutArray &copies, const platform::Attributes &like);
    void noteEvidence(const OutArray &copies, bool isVerified);
    void failForAll(const std::string &source, const OutArray &copies, const platform::FileError &error);
    void copyContent(platform::File &from, const std::string &source, const OutArray &copies,
                     const platform::Attributes &like);
    void copyBlocks(platform::File &from, const std::string &source, std::uint64_t size,
                    platform::Expected<std::size_t> count);
    void openOutputs(const OutArray &copies, const platform::Attributes &like, const Block *wholeFile);
    void openOutput(Target &target, const std::string &copy, const platform::Attributes &like);
    void openExisting(Target &target, const std::string &copy);
    bool hasSourceChanged(const platform::File &from, std::uint64_t bytesRead) const;
    void tellOutcome(Target &target, const std::string &source);
    platform::Expected<std::size_t> writeAndReadAhead(platform::File &from, Block block, std::uint64_t offset,
                                                      int spare);
    static void writeTo(Target &target, Block block, std::uint64_t offset);
    void noteInMemory(std::uint64_t offset, std::uint64_t length, bool isLargeFile);
    void failAll(const platform::FileError &error);
    void tellNewErrors(const std::string &source);
    void closeOutput(Target &target);
    void closeOutputs(const std::string &source);
    void leavePumps();

    RunContext &m_run;
    FileComparer &m_comparer;
    std::string m_source;
    std::uint64_t m_written = 0;    ///< bytes of the source that were read and handed on
    bool m_mayChangeUnseen = false; ///< a write to the current source may leave its time unchanged
    bool m_isSourceChanged = false; ///< set before the outputs are closed
};

} // namespace orvana

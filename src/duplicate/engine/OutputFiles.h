#pragma once

#include "duplicate/engine/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvana
{

class RunContext;
struct Target;

/// The copies of the file in hand while they are written, one on each destination.
///
/// Used by the copy thread. Workers call `open`, `write` and `close`, each for a target of its own.
class OutputFiles
{
public:
    using Block = std::span<const std::byte>;

    explicit OutputFiles(RunContext &run) : m_run(run) {}
    ~OutputFiles() { leavePumps(); }
    OutputFiles(const OutputFiles &) = delete;
    OutputFiles &operator=(const OutputFiles &) = delete;

    /// Starts the copies of another file.
    void start(const std::string &source);

    const std::string &source() const { return m_source; }

    /// Opens the copy at `copy` on the target, and creates it with the attributes `like` if it is not there.
    void open(Target &target, const std::string &copy, const platform::Attributes &like);

    /// Writes the block, unless the run updates the copy and the copy holds the block already.
    void write(Target &target, Block block, std::uint64_t offset);

    /// Notes which parts of the file's next block are not holes. The holes are not written then.
    void noteData(std::vector<platform::Range> data) { m_data = std::move(data); }

    /// Tells the pumps which bytes of the block at `offset` were written, and waits while a disk is too far
    /// behind.
    void noteInMemory(std::uint64_t offset, bool isLargeFile);

    /// Ends all copies with this error of the source.
    void failAll(const platform::FileError &error);

    /// Reports the errors that were not reported yet.
    void tellNewErrors();

    /// Notes that this many bytes of the source were read and handed on.
    void noteRead(std::uint64_t bytes) { m_read = bytes; }

    /// Notes before `close` whether the source was written to while it was read.
    void noteSource(bool isChanged) { m_isSourceChanged = isChanged; }

    /// Closes the copy. It counts as copied if it was written without an error and is as long as its source.
    void close(Target &target);

    /// Closes all copies and reports what is wrong with them.
    void closeAll();

private:
    void openExisting(Target &target, const std::string &copy);
    platform::Expected<std::unique_ptr<platform::File>> openForWork(Target &target, const std::string &copy);
    static bool holds(Target &target, Block block, std::uint64_t offset);
    platform::Expected<void> put(Target &target, Block block, std::uint64_t offset) const;
    platform::Expected<void> putData(Target &target, Block block, std::uint64_t offset) const;
    void endHoles(Target &target) const;
    void endTail(Target &target) const;
    void tellOutcome(Target &target) const;
    void leavePumps();

    RunContext &m_run;
    std::string m_source;
    std::optional<std::vector<platform::Range>> m_data; ///< of the block in hand; nullopt for all of it
    std::uint64_t m_read = 0;
    bool m_isSourceChanged = false;
};

} // namespace orvana

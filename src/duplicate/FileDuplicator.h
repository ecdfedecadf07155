#pragma once

#include "duplicate/CopyJob.h"
#include "platform/VolumeFiles.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace orvana
{

class FileComparer;
class RunState;

/// Copies one file to all destinations: each block is read once and written to every one of them.
class FileDuplicator
{
public:
    FileDuplicator(RunState &run, FileComparer &comparer) : m_run(run), m_comparer(comparer) {}
    ~FileDuplicator() { leavePumps(); }
    FileDuplicator(const FileDuplicator &) = delete;
    FileDuplicator &operator=(const FileDuplicator &) = delete;

    /// `like` are the attributes that new copies, and folders missing above them, are given. Returns 1, or
    /// -1 when the source cannot be opened. Ends the thread when it is cancelled. A file that exists already
    /// where `newFolders` says that its folder is new is another one of this run, whose name the volume does
    /// not tell from this one.
    int copy(const std::string &source, const OutArray &copies, const platform::Attributes &like,
             const std::vector<bool> &newFolders);

private:
    using Block = std::span<const std::byte>;

    struct Output
    {
        std::unique_ptr<platform::File> file;
        std::optional<platform::FileError> error; ///< the first one; no more is written then
        bool existed = false;                     ///< the error came up in opening what was there already
        bool isSecondOfItsName = false;           ///< its bytes went over another file of this run
        bool isClosed = false;
        bool isTold = false; ///< the error was reported
    };

    void createParents(const OutArray &copies, const platform::Attributes &like);
    void failForAll(const std::string &source, const OutArray &copies, const platform::FileError &error);
    void copyContent(platform::File &from, const std::string &source, const OutArray &copies,
                     const platform::Attributes &like);
    void copyBlocks(platform::File &from, const std::string &source, std::uint64_t size,
                    platform::Expected<std::size_t> count);
    void openOutputs(const OutArray &copies, const platform::Attributes &like, const Block *wholeFile);
    Output openOutput(std::size_t index, const std::string &copy, const platform::Attributes &like);
    platform::Expected<std::size_t> writeAndReadAhead(platform::File &from, Block block, std::uint64_t offset,
                                                      int spare);
    void writeTo(std::size_t index, Block block, std::uint64_t offset);
    void noteInMemory(std::uint64_t offset, std::uint64_t length, bool isLargeFile);
    void failAll(const platform::FileError &error);
    void tellNewErrors(const std::string &source);
    void closeOutput(std::size_t index);
    void closeOutputs(const std::string &source);
    void leavePumps();

    RunState &m_run;
    FileComparer &m_comparer;
    std::vector<Output> m_outputs;
    std::vector<bool> m_newFolders;
    std::vector<std::optional<platform::FileError>> m_parentErrors;
};

} // namespace orvana

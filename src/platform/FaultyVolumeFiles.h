#pragma once

#include "platform/VolumeFiles.h"

#include <atomic>
#include <map>
#include <mutex>
#include <vector>

namespace orvana::platform
{

/// The faults of one volume. Each switch may be set at any time, from any thread. A limit of -1 is off.
struct VolumeFaults
{
    std::atomic<std::int64_t> capacity{-1};        ///< bytes that may be written until no space is left
    std::atomic<std::int64_t> writeErrorAfter{-1}; ///< bytes that may be written until writes fail
    std::atomic<std::int64_t> readErrorAfter{-1};  ///< bytes that may be read until reads fail
    std::atomic<std::int64_t> wrongByte{-1};       ///< offset of a byte that each file reads wrongly
    std::atomic<std::int64_t> listErrorAfter{-1};  ///< names that each listing gives before it breaks off
    std::atomic<int> delayMilliseconds{0};         ///< added to each read and write
    std::atomic<int> syncDelayMilliseconds{0};     ///< added to each sync of the whole volume
    std::atomic<std::int64_t> goneAfter{-1};       ///< bytes that may be written until the volume is gone
    std::atomic<bool> gone{false};                 ///< opens, reads, writes and syncs fail, open files too
    std::atomic<bool> readOnly{false};             ///< nothing can be opened for writing or created
    std::atomic<bool> writeOutError{false};        ///< waiting for written data fails
    std::atomic<bool> syncError{false};            ///< syncing the whole volume or a single file fails
    std::atomic<bool> closeError{false};           ///< closing a written file fails
    std::atomic<VolumeFamily> family{VolumeFamily::Unix}; ///< another than Unix is told as the volume's own
    std::atomic<std::int64_t> freeBytes{-1};              ///< told as the free space; -1 for the real one
    std::atomic<bool> isPlain{false}; ///< holds no links, owners or extended attributes, as FAT

    std::atomic<int> waiting{0}; ///< told to tests: the reads and writes that are held by the delay now
};

/// Forwards all calls to real files and adds the faults of each volume. Callable from any thread.
class FaultyVolumeFiles final : public VolumeFiles
{
public:
    explicit FaultyVolumeFiles(VolumeFiles &real);
    ~FaultyVolumeFiles() override;

    /// Returns the faults of everything at and below `root`, an absolute path. They live as long as this
    /// object.
    VolumeFaults &volume(const std::string &root);

    /// Marks the volume at `root` as gone for good. Files that are open on it fail from now on, even when
    /// another volume is mounted there later.
    void retire(const std::string &root);

    /// Returns the faults that apply to `path`, or null when `path` lies on no volume with faults.
    VolumeFaults *faultsAt(const std::string &path) const;

    Expected<std::unique_ptr<Folder>> openFolder(const std::string &path, Reach reach) override;
    Expected<std::unique_ptr<FolderLock>> lockFolder(const std::string &path, Sharing sharing) override
    {
        return m_real.lockFolder(path, sharing);
    }
    Folder &workingFolder() override;

private:
    VolumeFiles &m_real;
    std::unique_ptr<Folder> m_workingFolder;
    mutable std::mutex m_mutex;
    mutable std::map<std::string, VolumeFaults> m_volumes;
    std::vector<std::map<std::string, VolumeFaults>::node_type> m_retired;
};

} // namespace orvana::platform

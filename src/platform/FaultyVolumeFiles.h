#pragma once

#include "platform/VolumeFiles.h"

#include <atomic>
#include <map>
#include <mutex>
#include <vector>

namespace orvana::platform
{

/// What is wrong with one volume. Switches may be turned at any time, from any thread; -1 is off.
struct VolumeFaults
{
    std::atomic<std::int64_t> capacity{-1};        ///< bytes that may still be written, then no space
    std::atomic<std::int64_t> writeErrorAfter{-1}; ///< bytes that may still be written, then write errors
    std::atomic<std::int64_t> readErrorAfter{-1};  ///< bytes that may still be read, then read errors
    std::atomic<std::int64_t> listErrorAfter{-1};  ///< names that each listing gives, then it breaks off
    std::atomic<int> delayMilliseconds{0};         ///< added to each read and write
    std::atomic<int> syncDelayMilliseconds{0};     ///< added to each sync of the whole volume
    std::atomic<std::int64_t> goneAfter{-1};       ///< bytes that may still be written, then gone
    std::atomic<bool> gone{false};                 ///< every call fails, open files included
    std::atomic<bool> readOnly{false};             ///< nothing can be opened for writing or created
    std::atomic<bool> writeOutError{false};        ///< waiting for written data fails
    std::atomic<bool> syncError{false};            ///< only the sync of the whole volume fails
    std::atomic<bool> closeError{false};           ///< closing a written file fails
};

/// Forwards to real files and adds the faults of each volume. Callable from any thread.
class FaultyVolumeFiles final : public VolumeFiles
{
public:
    explicit FaultyVolumeFiles(VolumeFiles &real);
    ~FaultyVolumeFiles() override;

    /// The faults of everything at and below `root`, an absolute path; they live as long as this object.
    VolumeFaults &volume(const std::string &root);

    /// The volume at `root` is gone for good: what is open on it fails from now on, also when another volume
    /// is mounted there later.
    void retire(const std::string &root);

    /// The faults that hold for `path`, or null when it lies on no volume with faults.
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

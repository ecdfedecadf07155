#pragma once

#include "duplicate/evidence/DiskVerification.h"

#include <deque>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace orvana
{

/// Verifies several disks side by side, each on a thread of its own.
class Verification
{
public:
    /// Called on the thread of a disk, several at a time.
    struct Listener
    {
        std::function<void(std::size_t disk, const Finding &)> finding;
        std::function<void(std::size_t disk)> ended; ///< `verdict` is valid from then on
    };

    /// Starts to verify the disks with these roots. `files` must outlive this object.
    Verification(platform::VolumeFiles &files, std::vector<std::string> roots, VerifyOptions options,
                 Listener listener);

    /// Cancels and waits.
    ~Verification();
    Verification(const Verification &) = delete;
    Verification &operator=(const Verification &) = delete;

    /// Ends the reading at the next block. Callable from any thread.
    void cancel();

    /// Waits for all disks.
    void wait();

    std::size_t count() const { return m_disks.size(); }
    const std::string &root(std::size_t disk) const { return m_disks[disk].root; }
    const VerifyProgress &progress(std::size_t disk) const { return m_disks[disk].progress; }
    bool hasEnded(std::size_t disk) const { return m_disks[disk].hasEnded; }

    /// Valid once the disk has ended.
    const DiskVerdict &verdict(std::size_t disk) const { return m_disks[disk].verdict; }

private:
    struct Disk
    {
        std::string root;
        VerifyProgress progress;
        DiskVerdict verdict;
        std::atomic<bool> hasEnded{false};
        std::jthread thread;
    };

    void verify(std::size_t index, const std::stop_token &token);

    platform::VolumeFiles &m_files;
    const VerifyOptions m_options;
    const Listener m_listener;
    std::deque<Disk> m_disks; // a deque, because the disks must stay where they are
};

} // namespace orvana

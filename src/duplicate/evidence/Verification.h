#pragma once

#include "duplicate/evidence/DiskVerification.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvana
{

/// Verifies several disks side by side, each on a thread of its own.
class Verification
{
public:
    /// Called on the thread of a disk, several at a time, and not after the destructor.
    struct Listener
    {
        std::function<void(std::size_t disk, const Finding &)> finding;
        std::function<void(std::size_t disk)> ended; ///< `verdict` is valid from then on
    };

    /// Starts to verify the disks with these roots. `files` must outlive this object, and any thread that is
    /// left behind.
    Verification(platform::VolumeFiles &files, std::vector<std::string> roots, VerifyOptions options,
                 Listener listener);

    /// Cancels, and waits a moment. A thread that a disk holds up for longer is left behind.
    ~Verification();
    Verification(const Verification &) = delete;
    Verification &operator=(const Verification &) = delete;

    /// Ends the reading at the next block. Callable from any thread.
    void cancel();

    std::size_t count() const;
    const std::string &root(std::size_t disk) const;
    const VerifyProgress &progress(std::size_t disk) const;
    bool hasEnded(std::size_t disk) const;

    /// Valid once the disk has ended.
    const DiskVerdict &verdict(std::size_t disk) const;

private:
    struct Disk;
    struct State;

    static void verify(const std::shared_ptr<State> &state, std::size_t index, const std::stop_token &token);

    // The threads share it, and may outlive this object.
    const std::shared_ptr<State> m_state;
};

} // namespace orvana

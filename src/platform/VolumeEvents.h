#pragma once

#include <functional>

namespace orvana::platform
{

enum class VolumeChange { Mounted, Unmounted, Renamed };

/// Tells when volumes come, go or are renamed, on the main queue.
class VolumeEvents
{
public:
    virtual ~VolumeEvents() = default;

    /// Calls `handler` for every change from now on, until the host ends.
    virtual void subscribe(std::function<void(VolumeChange)> handler) = 0;
};

} // namespace orvana::platform

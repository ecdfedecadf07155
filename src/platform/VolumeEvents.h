#pragma once

#include <functional>

namespace orvana::platform
{

enum class VolumeChange { Mounted, Unmounted, Renamed };

/// Reports on the main queue when volumes are mounted, unmounted or renamed.
class VolumeEvents
{
public:
    virtual ~VolumeEvents() = default;

    /// Calls `handler` for every change from now on, until the host ends.
    virtual void subscribe(std::function<void(VolumeChange)> handler) = 0;
};

} // namespace orvana::platform

#pragma once

#include <string>

namespace orvana
{

class Clock;
class MainQueue;
class NotificationCenter;

namespace platform
{
class Host;
}

/// What the windows are given to work with. All of it outlives them.
struct AppContext
{
    platform::Host &host;
    NotificationCenter &center;       ///< of panels and workers
    NotificationCenter &volumeCenter; ///< of volumes that come, go and are renamed
    MainQueue &queue;
    const Clock &clock;
    std::string logFolder; ///< where logs and reports stand
};

} // namespace orvana

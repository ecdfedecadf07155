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

/// Everything that the windows work with. All of it must outlive the windows.
struct AppContext
{
    platform::Host &host;
    NotificationCenter &center;       ///< notifications of panels and workers
    NotificationCenter &volumeCenter; ///< notifications of volumes that come, go and are renamed
    MainQueue &queue;
    const Clock &clock;
    std::string logFolder; ///< folder of the logs and reports
};

} // namespace orvana

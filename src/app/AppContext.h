#pragma once

#include <functional>
#include <memory>
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

/// The work of a production line at this moment, for the windows that must not get in its way.
struct LineActivity
{
    bool isArmed = false;
    bool isAtWork = false;
};

/// Everything that the windows work with. All of it must outlive the windows.
struct AppContext
{
    platform::Host &host;
    NotificationCenter &center;       ///< notifications of panels and workers
    NotificationCenter &volumeCenter; ///< notifications of volumes that come, go and are renamed
    MainQueue &queue;
    const Clock &clock;
    std::string logFolder; ///< folder of the logs and reports
    /// Starts the program once more, on the demo machine, and returns false if that fails. Empty when this is
    /// the demo.
    // NOLINTNEXTLINE(readability-redundant-member-init): lets an aggregate leave it out.
    std::function<bool()> startDemo{};
    /// Shared by all copies of this context.
    std::shared_ptr<LineActivity> line = std::make_shared<LineActivity>();
};

} // namespace orvana

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace orvana
{
class MainQueue;
}

namespace orvana::platform::linux_host
{

/// What happened to the machine.
struct MachineEvent
{
    std::string action;    ///< of udev: "add", "bind", "change", "remove"; empty when mounts changed
    std::string subsystem; ///< "pci", "block", "thunderbolt"
    std::string type;      ///< DEVTYPE
    std::string path;      ///< "/sys/devices/..."
};

/// Waits on a thread of its own for events of devices and of the mount table, and hands them to the main
/// queue. What of these the system does not offer is not watched.
class MachineWatch
{
public:
    using Handler = std::function<void(const MachineEvent &)>;

    /// `handler` runs on `queue`, which outlives this object; never after its end.
    MachineWatch(MainQueue &queue, Handler handler);
    ~MachineWatch();
    MachineWatch(const MachineWatch &) = delete;
    MachineWatch &operator=(const MachineWatch &) = delete;

private:
    class Sources;

    void run();
    void hand(MachineEvent event);

    MainQueue &m_queue;
    std::shared_ptr<Handler> m_handler; // what waits on the queue finds it, or nothing
    std::unique_ptr<Sources> m_sources;
    std::thread m_thread;
};

} // namespace orvana::platform::linux_host

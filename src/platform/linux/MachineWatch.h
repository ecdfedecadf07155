#pragma once

#include "enclosures/DefinitionFolder.h"

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

/// The subsystem of an event that is not a device's: the folder of the enclosure definitions has changed.
inline constexpr const char *DefinitionsChanged = "enclosure definitions";

/// An event of the machine.
struct MachineEvent
{
    std::string action;    ///< from udev: "add", "bind", "change", "remove"; empty when mounts changed
    std::string subsystem; ///< "pci", "block", "thunderbolt", "usb", or `DefinitionsChanged`
    std::string type;      ///< DEVTYPE
    std::string path;      ///< "/sys/devices/..."
};

/// Waits on its own thread for events of devices, of the mount table and of the enclosure definitions, and
/// hands them to the main queue.
/// Events that the system does not offer are not watched.
class MachineWatch
{
public:
    using Handler = std::function<void(const MachineEvent &)>;

    /// `handler` runs on `queue`, which must outlive this object. It never runs after this object is
    /// destroyed.
    /// `definitions` is the folder of the enclosure definitions, which need not exist.
    MachineWatch(MainQueue &queue, Handler handler,
                 const std::string &definitions = enclosures::SystemFolder);
    ~MachineWatch();
    MachineWatch(const MachineWatch &) = delete;
    MachineWatch &operator=(const MachineWatch &) = delete;

private:
    class Sources;

    void run();
    void hand(MachineEvent event);

    MainQueue &m_queue;
    std::shared_ptr<Handler> m_handler; // work that waits on the queue finds the handler, or null
    std::unique_ptr<Sources> m_sources;
    std::thread m_thread;
};

} // namespace orvana::platform::linux_host

#include "platform/linux/MachineWatch.h"

#include "foundation/MainQueue.h"
#include "platform/linux/FolderWatch.h"
#include "platform/posix/Descriptor.h"

#include <array>
#include <cerrno>
#include <libmount/libmount.h>
#include <libudev.h>
#include <optional>
#include <poll.h>
#include <sys/eventfd.h>

namespace orvana::platform::linux_host
{

namespace
{

struct Unref
{
    void operator()(udev *context) const { udev_unref(context); }
    void operator()(udev_monitor *monitor) const { udev_monitor_unref(monitor); }
    void operator()(udev_device *device) const { udev_device_unref(device); }
    void operator()(libmnt_monitor *monitor) const { mnt_unref_monitor(monitor); }
};

std::string textOf(const char *text)
{
    return text ? text : std::string();
}

} // namespace

/// The sources of events that the thread waits for. Made on the thread that makes the watch. After that only
/// the waiting thread uses it, except for `stop`.
class MachineWatch::Sources
{
public:
    explicit Sources(const std::string &definitions)
        : m_stop(::eventfd(0, EFD_CLOEXEC)), m_definitions(definitions), m_context(udev_new())
    {
        if (m_context)
            m_devices.reset(udev_monitor_new_from_netlink(m_context.get(), "udev"));
        if (m_devices) {
            for (const char *subsystem : {"pci", "block", "thunderbolt"})
                udev_monitor_filter_add_match_subsystem_devtype(m_devices.get(), subsystem, nullptr);
            udev_monitor_filter_add_match_subsystem_devtype(m_devices.get(), "usb", "usb_device");
            // The buffer has room for the events of a whole enclosure.
            udev_monitor_set_receive_buffer_size(m_devices.get(), 16 * 1024 * 1024);
            udev_monitor_enable_receiving(m_devices.get());
        }
        m_mounts.reset(mnt_new_monitor());
        if (m_mounts && mnt_monitor_enable_kernel(m_mounts.get(), 1) != 0)
            m_mounts.reset();
    }

    void stop() const { ::eventfd_write(m_stop.number(), 1); }

    /// Waits for an event. Returns false when the thread must end.
    bool wait()
    {
        std::array<pollfd, 4> waits{pollfd{m_stop.number(), POLLIN, 0},
                                    pollfd{m_devices ? udev_monitor_get_fd(m_devices.get()) : -1, POLLIN, 0},
                                    pollfd{m_mounts ? mnt_monitor_get_fd(m_mounts.get()) : -1, POLLIN, 0},
                                    pollfd{m_definitions.number(), POLLIN, 0}};
        while (::poll(waits.data(), waits.size(), -1) < 0) {
            if (errno != EINTR)
                return false;
        }
        m_hasDevice = waits[1].revents != 0;
        m_hasMounts = waits[2].revents != 0;
        m_hasDefinitions = waits[3].revents != 0;
        return waits[0].revents == 0;
    }

    std::optional<MachineEvent> takeDevice()
    {
        if (!std::exchange(m_hasDevice, false))
            return std::nullopt;
        const std::unique_ptr<udev_device, Unref> device(udev_monitor_receive_device(m_devices.get()));
        if (!device)
            return std::nullopt;
        return MachineEvent{
            textOf(udev_device_get_action(device.get())), textOf(udev_device_get_subsystem(device.get())),
            textOf(udev_device_get_devtype(device.get())), textOf(udev_device_get_syspath(device.get()))};
    }

    bool takeMounts()
    {
        if (!std::exchange(m_hasMounts, false))
            return false;
        // This rearms the monitor. The mount table shows what changed.
        mnt_monitor_event_cleanup(m_mounts.get());
        return true;
    }

    bool takeDefinitions() { return std::exchange(m_hasDefinitions, false) && m_definitions.take(); }

private:
    posix::Descriptor m_stop;
    FolderWatch m_definitions;
    std::unique_ptr<udev, Unref> m_context;
    std::unique_ptr<udev_monitor, Unref> m_devices;
    std::unique_ptr<libmnt_monitor, Unref> m_mounts;
    bool m_hasDevice = false;
    bool m_hasMounts = false;
    bool m_hasDefinitions = false;
};

MachineWatch::MachineWatch(MainQueue &queue, Handler handler, const std::string &definitions)
    : m_queue(queue), m_handler(std::make_shared<Handler>(std::move(handler))),
      m_sources(std::make_unique<Sources>(definitions)), m_thread([this] { run(); })
{
}

MachineWatch::~MachineWatch()
{
    m_sources->stop();
    m_thread.join();
}

void MachineWatch::run()
{
    while (m_sources->wait()) {
        if (auto event = m_sources->takeDevice())
            hand(std::move(*event));
        if (m_sources->takeMounts())
            hand({});
        if (m_sources->takeDefinitions())
            hand({.action = "change", .subsystem = DefinitionsChanged, .type = {}, .path = {}});
    }
}

void MachineWatch::hand(MachineEvent event)
{
    m_queue.async([weak = std::weak_ptr(m_handler), event = std::move(event)] {
        if (const auto handler = weak.lock())
            (*handler)(event);
    });
}

} // namespace orvana::platform::linux_host

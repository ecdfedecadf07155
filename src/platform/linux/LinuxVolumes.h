#pragma once

#include "platform/Places.h"
#include "platform/VolumeEvents.h"
#include "platform/linux/LinuxMachine.h"

namespace orvana::platform::linux_host
{

/// Reports volumes that come and go. A volume is a mount from a device that is present. When a disk is
/// pulled, its volumes are gone, even if the mount table still lists them.
class LinuxVolumeEvents final : public VolumeEvents
{
public:
    explicit LinuxVolumeEvents(LinuxMachine &machine);

    void subscribe(std::function<void(VolumeChange)> handler) override;

    /// Reports what has changed since the last call.
    void tellChanges();

private:
    struct Volume
    {
        std::string point, label;

        bool operator==(const Volume &) const = default;
    };
    using Volumes = std::map<std::string, Volume>; // by the device's path in the kernel

    Volumes volumes();
    void tell(VolumeChange change) const;

    LinuxMachine &m_machine;
    Volumes m_volumes;
    std::vector<std::function<void(VolumeChange)>> m_handlers;
};

/// Places from the machine's own volumes and the user database.
class LinuxPlaces final : public Places
{
public:
    explicit LinuxPlaces(LinuxMachine &machine) : m_machine(machine) {}

    std::optional<std::string> userPath(const std::string &login) const override;
    bool isVolumeRoot(const Folder &folder) const override;
    std::vector<std::string> disksBeneath(const std::vector<std::string> &paths) const override;

private:
    LinuxMachine &m_machine;
};

} // namespace orvana::platform::linux_host

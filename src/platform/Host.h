#pragma once

namespace orvana::enclosures
{
class EnclosureSetup;
}

namespace orvana::platform
{

class Account;
class CommandLauncher;
class HardwareRegistry;
class HealthReader;
class Places;
class VolumeEvents;
class VolumeFiles;
class Workspace;

/// The program's only access to the machine. The parts live as long as the host.
class Host
{
public:
    virtual ~Host() = default;

    virtual Account &account() = 0;
    virtual Places &places() = 0;
    virtual VolumeFiles &volumeFiles() = 0;
    virtual HardwareRegistry &registry() = 0;
    virtual VolumeEvents &volumeEvents() = 0;
    virtual CommandLauncher &launcher() = 0;
    virtual Workspace &workspace() = 0;
    virtual enclosures::EnclosureSetup &enclosureSetup() = 0;
    virtual HealthReader &health() = 0;
};

} // namespace orvana::platform
